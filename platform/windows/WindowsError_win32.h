#ifndef PLATFORM_WINDOWS_WINDOWS_ERROR_WIN32_H_
#define PLATFORM_WINDOWS_WINDOWS_ERROR_WIN32_H_

#include <cstdint>
#include <system_error>

namespace imptable {

/// @param code  as GetLastError gives it.
/// @return the value of std::generic_category() that says the same. No error for 0; io_error for a
/// code without such a value.
std::error_code ErrorOf(std::uint32_t code);

/// The error of the thread's last system call.
std::error_code LastError();

}  // namespace imptable

#endif  // PLATFORM_WINDOWS_WINDOWS_ERROR_WIN32_H_
