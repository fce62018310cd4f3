#ifndef CORE_STAMP_TEXT_H_
#define CORE_STAMP_TEXT_H_

#include <string>

#include "platform/system/Clock.h"

namespace imptable {

/// dd/mm/yy hh:mm:ss, the form of every date in a task's key. Stored and read by the host: never
/// change.
std::string StampText(const LocalTime& time);

}  // namespace imptable

#endif  // CORE_STAMP_TEXT_H_
