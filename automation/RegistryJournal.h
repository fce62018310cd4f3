#ifndef AUTOMATION_REGISTRY_JOURNAL_H_
#define AUTOMATION_REGISTRY_JOURNAL_H_

#include <optional>
#include <string>
#include <vector>

#include "automation/AutomationApi.h"

namespace imptable {

/// Writes texts to the registry. The destructor takes the writes back unless they are kept: values
/// get their former contents again, and new keys are deleted.
class RegistryJournal {
 public:
  /// @param root  borrowed; every path below is below it.
  explicit RegistryJournal(HKEY root) : root_(root) {}
  RegistryJournal(const RegistryJournal&) = delete;
  RegistryJournal& operator=(const RegistryJournal&) = delete;
  ~RegistryJournal();

  /// Makes the key, and those above it, when needed.
  /// @param name  empty for the key's default value.
  /// @return the system result code, 0 = success.
  LSTATUS Write(const std::wstring& path, const std::wstring& name, const std::wstring& text);

  /// Nothing is taken back any more.
  void Keep() { steps_.clear(); }

 private:
  struct Value {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
  };
  struct Step {
    std::wstring path;
    std::optional<std::wstring> name;  // none: the key itself was made
    std::optional<Value> former;
  };

  LSTATUS MakeKeys(const std::wstring& path);
  void TakeBack(const Step& step) const;

  HKEY root_;
  std::vector<Step> steps_;
};

}  // namespace imptable

#endif  // AUTOMATION_REGISTRY_JOURNAL_H_
