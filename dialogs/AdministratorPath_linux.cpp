#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "dialogs/AdministratorPath.h"

namespace imptable {
namespace {

constexpr const char* kUsualProgram = "ODBCManageDataSourcesQ4";

bool IsProgram(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::string AdministratorPath() {
  const char* const configured = std::getenv("IMPTABLE_ODBC_ADMIN");
  const std::string name =
      configured != nullptr && *configured != '\0' ? configured : kUsualProgram;
  if (name.find('/') != std::string::npos) return IsProgram(name) ? name : std::string();
  const char* const path = std::getenv("PATH");
  std::string_view folders = path == nullptr ? "" : path;
  while (!folders.empty()) {
    const std::size_t end = folders.find(':');
    std::string program = std::string(folders.substr(0, end)) + '/' + name;
    if (IsProgram(program)) return program;
    folders.remove_prefix(end == std::string_view::npos ? folders.size() : end + 1);
  }
  return {};
}

}  // namespace imptable
