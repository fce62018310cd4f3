#ifndef PLATFORM_REGISTRY_SQLITE_REGISTRY_H_
#define PLATFORM_REGISTRY_SQLITE_REGISTRY_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/Registry.h"
#include "platform/registry/RegistryStore.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// System result codes of a failed write (Windows API values).
inline constexpr std::int32_t kRegistryInvalidHandle = 6;   // ERROR_INVALID_HANDLE: no such root
inline constexpr std::int32_t kRegistryLocked = 33;         // ERROR_LOCK_VIOLATION
inline constexpr std::int32_t kRegistryDiskFull = 112;      // ERROR_DISK_FULL
inline constexpr std::int32_t kRegistryDamaged = 1009;      // ERROR_BADDB
inline constexpr std::int32_t kRegistryCannotWrite = 1013;  // ERROR_CANTWRITE

/// The registry port over a registry file, in the system's code page. A name may hold a character
/// that the code page lacks. It is listed with "?" for that character, and can't be found under the
/// listed name.
///
/// When the file can't be read (damaged, locked), the reading members throw RegistryFileError: its
/// values must not pass for absent ones. The writing members return a result code instead.
class SqliteRegistry : public Registry {
 public:
  /// Both are borrowed and must outlive the adapter.
  SqliteRegistry(RegistryStore& store, const TextEncoding& encoding);

  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const override;
  std::int32_t Write(const KeyPath& key, std::string_view name,
                     const RegistryValue& value) override;
  std::int32_t DeleteKey(const KeyPath& key) override;
  std::vector<std::string> ValueNames(const KeyPath& key) const override;
  std::vector<std::string> SubkeyNames(const KeyPath& key) const override;

  /// The error of the latest write or deletion that failed because of the file. A later success
  /// doesn't clear it.
  const std::optional<RegistryFileError>& last_write_failure() const { return last_write_failure_; }

 private:
  KeyPath Stored(const KeyPath& key) const;
  std::int32_t Attempt(const std::function<std::int32_t()>& change);

  RegistryStore& store_;
  const TextEncoding& encoding_;
  std::optional<RegistryFileError> last_write_failure_;
};

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_SQLITE_REGISTRY_H_
