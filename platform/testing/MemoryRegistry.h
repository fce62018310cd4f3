#ifndef PLATFORM_TESTING_MEMORY_REGISTRY_H_
#define PLATFORM_TESTING_MEMORY_REGISTRY_H_

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/Registry.h"

namespace imptable {

/// The registry port in memory, with the naming and order rules of the real ones. Names are taken
/// for UTF-8. It has the two roots HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER. Under any other root
/// nothing is found and a write gives 6 (ERROR_INVALID_HANDLE).
///
/// Set... and the getters beside them take a path below HKEY_LOCAL_MACHINE or a whole KeyPath.
class MemoryRegistry : public Registry {
 public:
  MemoryRegistry();
  ~MemoryRegistry() override;

  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const override;
  std::int32_t Write(const KeyPath& key, std::string_view name,
                     const RegistryValue& value) override;
  std::int32_t DeleteKey(const KeyPath& key) override;
  std::vector<std::string> ValueNames(const KeyPath& key) const override;
  std::vector<std::string> SubkeyNames(const KeyPath& key) const override;

  /// Stored as kText with its terminating NUL.
  void SetText(const KeyPath& key, std::string_view name, std::string_view text);
  void SetText(std::string_view path, std::string_view name, std::string_view text);

  void SetNumber(const KeyPath& key, std::string_view name, std::int32_t number);
  void SetNumber(std::string_view path, std::string_view name, std::int32_t number);

  /// @return the text without its terminating NUL; nullopt when absent or of a type other than
  /// kText and kExpandableText.
  std::optional<std::string> Text(const KeyPath& key, std::string_view name) const;
  std::optional<std::string> Text(std::string_view path, std::string_view name) const;

  /// @return nullopt when absent or not a kNumber of 4 bytes.
  std::optional<std::int32_t> Number(const KeyPath& key, std::string_view name) const;
  std::optional<std::int32_t> Number(std::string_view path, std::string_view name) const;

  bool HasKey(const KeyPath& key) const;
  bool HasKey(std::string_view path) const;

  /// Every Read of the port so far, found or not, as "path|name" in the caller's spelling. The
  /// getters of this class don't count.
  const std::vector<std::string>& reads() const { return reads_; }
  void ForgetReads() { reads_.clear(); }

  /// Every Write of the port so far, failed or not, as "path|name=value": a text without its
  /// terminating NUL, a number in decimal. Set... doesn't count.
  const std::vector<std::string>& writes() const { return writes_; }

  /// The nth Read of the port, counted from 1 for the next one, and all after it throw
  /// RegistryError.
  void FailReadsFrom(int nth) { reads_left_ = nth - 1; }

  /// Every Write of the port gives this code and stores nothing.
  void FailWrites(std::int32_t code) { write_code_ = code; }

 private:
  struct Key;

  std::int32_t Store(const KeyPath& key, std::string_view name, const RegistryValue& value);
  const Key* Find(const KeyPath& key) const;
  const RegistryValue* FindValue(const KeyPath& key, std::string_view name) const;

  std::map<std::int32_t, std::unique_ptr<Key>> roots_;
  mutable std::vector<std::string> reads_;
  std::vector<std::string> writes_;
  mutable std::optional<int> reads_left_;
  std::int32_t write_code_ = kRegistryOk;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_MEMORY_REGISTRY_H_
