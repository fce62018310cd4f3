#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <string>

#include "platform/system/Clock.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

constexpr LocalTime kSaturday{
    .year = 2003, .month = 2, .day = 1, .hour = 13, .minute = 4, .second = 5};

/// Changes one of the user's formats. The destructor puts the former one back.
class UserFormat {
 public:
  UserFormat(LCTYPE what, const wchar_t* format) : what_(what) {
    EXPECT_NE(
        GetLocaleInfoW(LOCALE_USER_DEFAULT, what, before_.data(), static_cast<int>(before_.size())),
        0);
    EXPECT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, what, format), 0);
  }
  ~UserFormat() { SetLocaleInfoW(LOCALE_USER_DEFAULT, what_, before_.data()); }
  UserFormat(const UserFormat&) = delete;
  UserFormat& operator=(const UserFormat&) = delete;

 private:
  LCTYPE what_;
  std::array<wchar_t, 100> before_{};
};

TEST(ClockOfWindows, WritesTheUsersShortDateAndLongTimeInTheCodePage) {
  const UserFormat date(LOCALE_SSHORTDATE, L"'\u00e9t\u00e9' dd.MM.yy");
  const UserFormat time(LOCALE_STIMEFORMAT, L"HH'h'mm'm'ss");
  const std::string expected = GetACP() == CP_UTF8 ? "\u00e9t\u00e9" : "\xe9t\xe9";
  EXPECT_EQ(SystemClock()->ShortDateLongTime(kSaturday), expected + " 01.02.03 13h04m05");
}

TEST(ClockOfWindows, FollowsTheTimesItIsGiven) {
  const UserFormat date(LOCALE_SSHORTDATE, L"yyyy-MM-dd");
  const UserFormat time(LOCALE_STIMEFORMAT, L"HH:mm:ss");
  const auto clock = SystemClock();
  EXPECT_EQ(clock->ShortDateLongTime(kSaturday), "2003-02-01 13:04:05");
  EXPECT_EQ(clock->ShortDateLongTime({.year = 2024, .month = 12, .day = 31, .second = 6}),
            "2024-12-31 00:00:06");
}

TEST(ClockOfWindows, TellsTheLocalTime) {
  const std::time_t before = std::time(nullptr);
  const LocalTime now = SystemClock()->Now();
  const std::time_t after = std::time(nullptr);
  std::tm parts{};
  parts.tm_year = now.year - 1900;
  parts.tm_mon = now.month - 1;
  parts.tm_mday = now.day;
  parts.tm_hour = now.hour;
  parts.tm_min = now.minute;
  parts.tm_sec = now.second;
  parts.tm_isdst = -1;
  const std::time_t told = std::mktime(&parts);
  EXPECT_GE(told, before);
  EXPECT_LE(told, after);
}

}  // namespace
}  // namespace imptable
