#ifndef PLATFORM_WINDOWS_WINDOWS_WIN32_H_
#define PLATFORM_WINDOWS_WINDOWS_WIN32_H_

// <windows.h> without its macros that would rename identifiers of the common code.
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
