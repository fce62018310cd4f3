#ifndef PLATFORM_REGISTRY_REGISTRY_FILE_ERROR_H_
#define PLATFORM_REGISTRY_REGISTRY_FILE_ERROR_H_

#include <string>
#include <string_view>

#include "platform/registry/Registry.h"

namespace imptable {

enum class RegistryFileFault {
  kNotARegistry,  // some other file, or another application's database
  kNewerFormat,
  kDamaged,
  kNoRights,
  kDiskFull,
  kLocked,
  kUnusable,  // anything else that the operating system refuses
};

/// The registry file can't be opened, read or written. what() is one line in English that names the
/// file, what is wrong with it and what to do. The members give the parts, for texts in other
/// languages.
class RegistryFileError : public RegistryError {
 public:
  /// @param detail  the reason in the words of whoever found it; may be empty.
  RegistryFileError(const std::string& path, RegistryFileFault fault, std::string_view detail);

  const std::string& path() const noexcept { return path_; }
  RegistryFileFault fault() const noexcept { return fault_; }
  const std::string& detail() const noexcept { return detail_; }

 private:
  std::string path_;
  RegistryFileFault fault_;
  std::string detail_;
};

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_FILE_ERROR_H_
