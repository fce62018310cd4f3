#ifndef PLATFORM_REGISTRY_REGISTRY_PATH_H_
#define PLATFORM_REGISTRY_REGISTRY_PATH_H_

#include <string_view>
#include <vector>

namespace imptable {

/// The key names of a registry path, from the root on. Empty ones (a "\" too many) are left out.
/// The views are valid while `path` is.
std::vector<std::string_view> PathParts(std::string_view path);

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_PATH_H_
