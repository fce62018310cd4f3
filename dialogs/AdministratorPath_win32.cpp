#include <array>

#include "dialogs/AdministratorPath.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

constexpr const char* kProgram = "\\odbcad32.exe";

}  // namespace

std::string AdministratorPath() {
  std::array<char, MAX_PATH> folder{};
  const UINT length = GetSystemDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
  if (length == 0 || length >= folder.size()) return {};
  const std::string program = std::string(folder.data(), length) + kProgram;
  const DWORD attributes = GetFileAttributesA(program.c_str());
  return attributes == INVALID_FILE_ATTRIBUTES ? std::string() : program;
}

}  // namespace imptable
