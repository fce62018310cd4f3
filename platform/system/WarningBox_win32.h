#ifndef PLATFORM_SYSTEM_WARNING_BOX_WIN32_H_
#define PLATFORM_SYSTEM_WARNING_BOX_WIN32_H_

#include <memory>

#include "platform/system/WarningBox.h"

namespace imptable {

/// Boxes over the thread's active window. All windows of the thread wait for the answer.
std::unique_ptr<WarningBox> SystemWarningBox();

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_WARNING_BOX_WIN32_H_
