#ifndef PLATFORM_SYSTEM_MESSAGE_LOOP_WIN32_H_
#define PLATFORM_SYSTEM_MESSAGE_LOOP_WIN32_H_

#include <memory>

#include "platform/system/MessageLoop.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {

/// The message loop of the thread that makes it; its timers must end on that thread.
/// @param now  like GetTickCount. Yield looks into the thread's message queue only when this time
/// has changed since the last look.
std::unique_ptr<MessageLoop> MakeMessageLoop(DWORD(WINAPI* now)());

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MESSAGE_LOOP_WIN32_H_
