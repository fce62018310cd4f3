#include "platform/files/ProfileFile_win32.h"

#include <algorithm>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

constexpr std::size_t kLongestValue = 65'535;

/// @return the path from its drive or server on. The system would look for a bare name in its own
/// folder.
std::string FullPath(const std::string& path) {
  std::string full(MAX_PATH, '\0');
  for (;;) {
    const DWORD size =
        GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (size == 0) return path;
    const bool fits = size < full.size();
    full.resize(size);
    if (fits) return full;
  }
}

class WindowsProfileFile : public ProfileFile {
 public:
  std::string ReadString(const std::string& path, std::string_view section, std::string_view key,
                         std::string_view fallback, std::size_t most) const override {
    std::string value(std::min(most, kLongestValue) + 1, '\0');
    const DWORD size = GetPrivateProfileStringA(
        std::string(section).c_str(), std::string(key).c_str(), std::string(fallback).c_str(),
        value.data(), static_cast<DWORD>(value.size()), FullPath(path).c_str());
    value.resize(size);
    return value;
  }
};

}  // namespace

std::unique_ptr<ProfileFile> SystemProfileFile() { return std::make_unique<WindowsProfileFile>(); }

}  // namespace imptable
