#ifndef PLATFORM_TESTING_REGISTRYPLACE_H_
#define PLATFORM_TESTING_REGISTRYPLACE_H_

#include <memory>
#include <string>
#include <string_view>

#include "platform/registry/Registry.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// An implementation of the registry port, and a key in it without values and subkeys for a test to
/// fill.
class RegistryPlace {
 public:
  virtual ~RegistryPlace() = default;

  virtual Registry& registry() = 0;

  /// The encoding of the registry's names and texts.
  virtual const TextEncoding& encoding() const = 0;

  /// @param path  below the test's key; "" for that key itself.
  virtual KeyPath Key(const std::string& path) const = 0;
};

std::unique_ptr<RegistryPlace> PlaceInMemory();

/// In the registry that the component uses on this system: a file of the test's own, or the
/// registry of Windows below HKEY_CURRENT_USER. Emptied at the end.
std::unique_ptr<RegistryPlace> PlaceInTheSystem();

}  // namespace imptable

#endif  // PLATFORM_TESTING_REGISTRYPLACE_H_
