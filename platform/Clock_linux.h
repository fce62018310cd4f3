#ifndef PLATFORM_CLOCK_LINUX_H_
#define PLATFORM_CLOCK_LINUX_H_

#include <memory>
#include <string>

#include "platform/Clock.h"
#include "platform/TextEncoding.h"

namespace imptable {

/// @param locale  name of the locale whose date and time format is used; "" for the environment's.
/// One that the system lacks counts as the C locale.
/// @param encoding  of the texts.
std::unique_ptr<Clock> MakeClock(const std::string& locale, std::unique_ptr<TextEncoding> encoding);

}  // namespace imptable

#endif  // PLATFORM_CLOCK_LINUX_H_
