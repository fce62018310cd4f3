#include "import/layout/DateFormat.h"

#include <algorithm>

namespace imptable {
namespace {

constexpr std::size_t kSecondsCharacters = 8;  // hh:mm:ss
constexpr std::size_t kMinutesCharacters = 5;  // hh:mm

}  // namespace

std::size_t DateFormatWidth(const DateFormat& format) {
  std::size_t width = 0;
  if (format.style != 0) {
    const DateStyle& style = kDateStyles[format.style - 1U];
    width = std::max({style.year_at + std::size_t{style.year_digits},
                      style.month_at + std::size_t{2}, style.day_at + std::size_t{2}}) -
            1;
  }
  switch (format.time) {
    case TimeCode::kNone:
      return width;
    case TimeCode::kMinutes:
      return width + 1 + kMinutesCharacters;
    case TimeCode::kSeconds:
      return width + 1 + kSecondsCharacters;
  }
  return width;
}

}  // namespace imptable
