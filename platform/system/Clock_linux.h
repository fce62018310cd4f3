#ifndef PLATFORM_SYSTEM_CLOCK_LINUX_H_
#define PLATFORM_SYSTEM_CLOCK_LINUX_H_

#include <memory>
#include <string>

#include "platform/system/Clock.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// @param locale  name of the locale whose date and time format is used; "" for the environment's.
/// A locale that the system lacks counts as the C locale.
/// @param encoding  of the texts.
std::unique_ptr<Clock> MakeClock(const std::string& locale, std::unique_ptr<TextEncoding> encoding);

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_CLOCK_LINUX_H_
