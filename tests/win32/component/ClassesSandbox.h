#ifndef TESTS_WIN32_COMPONENT_CLASSES_SANDBOX_H_
#define TESTS_WIN32_COMPONENT_CLASSES_SANDBOX_H_

#include <string>
#include <vector>

#include "automation/AutomationApi.h"

namespace imptable {

std::wstring LowerCase(std::wstring text);

/// A new key of the registry, gone with its owner with all that is in it.
class SandboxKey {
 public:
  explicit SandboxKey(const std::wstring& name);
  SandboxKey(const SandboxKey&) = delete;
  SandboxKey& operator=(const SandboxKey&) = delete;
  ~SandboxKey();

  HKEY get() const { return key_; }
  void Write(const std::wstring& path, const std::wstring& name, const std::wstring& text) const;

  /// Everything below the key, sorted and in lower case: "path" for each key, "path|name=text" for
  /// each text.
  std::vector<std::wstring> Contents() const;

  /// From now on nothing can be written below the key.
  void Seal() const;

 private:
  std::wstring path_;
  HKEY key_ = nullptr;
};

/// While it lives, this process takes a key for HKEY_CLASSES_ROOT.
class ClassesRoot {
 public:
  explicit ClassesRoot(HKEY key) { RegOverridePredefKey(HKEY_CLASSES_ROOT, key); }
  ClassesRoot(const ClassesRoot&) = delete;
  ClassesRoot& operator=(const ClassesRoot&) = delete;
  ~ClassesRoot() { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }
};

}  // namespace imptable

#endif  // TESTS_WIN32_COMPONENT_CLASSES_SANDBOX_H_
