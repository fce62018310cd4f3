#include "platform/testing/ManualClock.h"

#include <array>
#include <cstdio>

namespace imptable {

std::string ManualClock::ShortDateLongTime(const LocalTime& time) const {
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%02d/%02d/%04d %02d:%02d:%02d", time.day, time.month,
                time.year, time.hour, time.minute, time.second);
  return text.data();
}

}  // namespace imptable
