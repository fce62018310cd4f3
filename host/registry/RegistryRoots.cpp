#include "host/registry/RegistryRoots.h"

#include <algorithm>
#include <string>

#include "platform/text/NameFolding.h"

namespace imptable {

std::optional<KeyPath> KeyPathFromName(std::string_view name) {
  const std::size_t root_end = std::min(name.find('\\'), name.size());
  const std::string root_name = FoldName(name.substr(0, root_end));
  const auto root = std::find_if(
      kRegistryRoots.begin(), kRegistryRoots.end(), [&](const RegistryRoot& candidate) {
        return root_name == candidate.name || root_name == candidate.short_name;
      });
  if (root == kRegistryRoots.end()) return std::nullopt;
  if (root_end == name.size()) return KeyPath{root->handle, ""};
  const std::string_view path = name.substr(root_end + 1);
  if (path.empty() || path.front() == '\\' || path.back() == '\\' ||
      path.find("\\\\") != std::string_view::npos) {
    return std::nullopt;
  }
  return KeyPath{root->handle, std::string(path)};
}

std::string_view RootName(std::int32_t root) {
  const auto found =
      std::find_if(kRegistryRoots.begin(), kRegistryRoots.end(),
                   [&](const RegistryRoot& candidate) { return candidate.handle == root; });
  return found == kRegistryRoots.end() ? std::string_view() : found->name;
}

}  // namespace imptable
