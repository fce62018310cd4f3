#ifndef PLATFORM_SYSTEM_MESSAGE_LOOP_LINUX_H_
#define PLATFORM_SYSTEM_MESSAGE_LOOP_LINUX_H_

#include <chrono>
#include <memory>

#include "platform/system/MessageLoop.h"

namespace imptable {

/// @param now  the time since some fixed moment; never goes back. Asked only while a timer is
/// armed.
std::unique_ptr<MessageLoop> MakeMessageLoop(std::chrono::nanoseconds (*now)());

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MESSAGE_LOOP_LINUX_H_
