#include "core/StampText.h"

#include <array>
#include <cstdio>

namespace imptable {

std::string StampText(const LocalTime& time) {
  std::array<char, 32> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "%02d/%02d/%02d %02d:%02d:%02d", time.day, time.month,
                    time.year % 100, time.hour, time.minute, time.second);
  return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace imptable
