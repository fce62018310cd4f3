#include <array>
#include <cstddef>

#include "platform/system/Clock.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

/// GetDateFormatA or GetTimeFormatA in the user's default form.
template <typename Format>
std::string Formatted(Format format, DWORD form, const SYSTEMTIME& time) {
  std::array<char, 256> text;
  // Without LOCALE_USE_CP_ACP the A functions would use the code page of the user's locale instead
  // of the system's.
  const int size = format(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP | form, &time, nullptr,
                          text.data(), static_cast<int>(text.size()));
  return size == 0 ? std::string() : std::string(text.data(), static_cast<std::size_t>(size) - 1);
}

class WindowsClock : public Clock {
 public:
  LocalTime Now() const override {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {.year = now.wYear,
            .month = now.wMonth,
            .day = now.wDay,
            .hour = now.wHour,
            .minute = now.wMinute,
            .second = now.wSecond};
  }

  std::string ShortDateLongTime(const LocalTime& time) const override {
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(time.year);
    parts.wMonth = static_cast<WORD>(time.month);
    parts.wDay = static_cast<WORD>(time.day);
    parts.wHour = static_cast<WORD>(time.hour);
    parts.wMinute = static_cast<WORD>(time.minute);
    parts.wSecond = static_cast<WORD>(time.second);
    return Formatted(GetDateFormatA, DATE_SHORTDATE, parts) + " " +
           Formatted(GetTimeFormatA, 0, parts);
  }
};

}  // namespace

std::unique_ptr<Clock> SystemClock() { return std::make_unique<WindowsClock>(); }

}  // namespace imptable
