#ifndef PLATFORM_SYSTEM_MOUSE_POINTER_WIN32_H_
#define PLATFORM_SYSTEM_MOUSE_POINTER_WIN32_H_

#include <memory>

#include "platform/system/MousePointer.h"

namespace imptable {

std::unique_ptr<MousePointer> SystemMousePointer();

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MOUSE_POINTER_WIN32_H_
