#ifndef HOST_REGISTRY_REGISTRY_ROOTS_H_
#define HOST_REGISTRY_REGISTRY_ROOTS_H_

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/registry/Registry.h"

namespace imptable {

struct RegistryRoot {
  std::int32_t handle;
  std::string_view name;
  std::string_view short_name;
};

// In the order of the registry editor.
inline constexpr std::array<RegistryRoot, 2> kRegistryRoots{{
    {kHkeyCurrentUser, "HKEY_CURRENT_USER", "HKCU"},
    {kHkeyLocalMachine, "HKEY_LOCAL_MACHINE", "HKLM"},
}};

/// A key by its whole name, "HKEY_LOCAL_MACHINE\SOFTWARE" or "HKLM\SOFTWARE", in UTF-8.
/// @return nullopt when the root is another one or a key's name in it is empty.
std::optional<KeyPath> KeyPathFromName(std::string_view name);

/// The long name of one of the two roots.
std::string_view RootName(std::int32_t root);

}  // namespace imptable

#endif  // HOST_REGISTRY_REGISTRY_ROOTS_H_
