#include "platform/registry/RegistryPath.h"

#include <cstddef>

namespace imptable {

std::vector<std::string_view> PathParts(std::string_view path) {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t end = path.find('\\');
    if (end != 0) parts.push_back(path.substr(0, end));
    path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
  }
  return parts;
}

}  // namespace imptable
