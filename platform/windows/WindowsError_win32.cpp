#include "platform/windows/WindowsError_win32.h"

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

// The tool chain's headers lack these.
constexpr DWORD kElevationRequired = 740;
constexpr DWORD kDiskQuotaExceeded = 1295;

struct Meaning {
  DWORD code;
  std::errc meaning;
};

constexpr Meaning kMeanings[] = {
    {ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    // What is missing is a folder on the way, the drive or the server.
    {ERROR_PATH_NOT_FOUND, std::errc::not_a_directory},
    {ERROR_INVALID_DRIVE, std::errc::not_a_directory},
    {ERROR_BAD_NETPATH, std::errc::not_a_directory},
    {ERROR_BAD_NET_NAME, std::errc::not_a_directory},
    {ERROR_DIRECTORY, std::errc::not_a_directory},
    {ERROR_ACCESS_DENIED, std::errc::permission_denied},
    {ERROR_SHARING_VIOLATION, std::errc::permission_denied},
    {ERROR_LOCK_VIOLATION, std::errc::permission_denied},
    {ERROR_DELETE_PENDING, std::errc::permission_denied},
    {ERROR_NETWORK_ACCESS_DENIED, std::errc::permission_denied},
    {ERROR_LOGON_FAILURE, std::errc::permission_denied},
    {ERROR_PRIVILEGE_NOT_HELD, std::errc::permission_denied},
    {kElevationRequired, std::errc::permission_denied},
    {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_DISK_FULL, std::errc::no_space_on_device},
    {kDiskQuotaExceeded, std::errc::no_space_on_device},
    {ERROR_FILE_TOO_LARGE, std::errc::file_too_large},
    {ERROR_INVALID_NAME, std::errc::invalid_argument},
    {ERROR_BAD_PATHNAME, std::errc::invalid_argument},
    {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    {ERROR_BUFFER_OVERFLOW, std::errc::filename_too_long},
    {ERROR_TOO_MANY_OPEN_FILES, std::errc::too_many_files_open},
    {ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    {ERROR_OUTOFMEMORY, std::errc::not_enough_memory},
    {ERROR_INVALID_HANDLE, std::errc::bad_file_descriptor},
    {ERROR_BAD_EXE_FORMAT, std::errc::executable_format_error},
};

}  // namespace

std::error_code ErrorOf(std::uint32_t code) {
  if (code == ERROR_SUCCESS) return {};
  for (const Meaning& entry : kMeanings) {
    if (entry.code == code) return std::make_error_code(entry.meaning);
  }
  return std::make_error_code(std::errc::io_error);
}

std::error_code LastError() { return ErrorOf(GetLastError()); }

}  // namespace imptable
