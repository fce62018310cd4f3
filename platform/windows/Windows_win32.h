#ifndef PLATFORM_WINDOWS_WINDOWS_WIN32_H_
#define PLATFORM_WINDOWS_WINDOWS_WIN32_H_

// <windows.h> without the macros that rename what common code calls its own.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#undef DELETE
#undef ERROR
#undef GetMessage
#undef Yield
#undef interface

#endif  // PLATFORM_WINDOWS_WINDOWS_WIN32_H_
