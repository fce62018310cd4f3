#include "platform/system/Clock_linux.h"

#include <gtest/gtest.h>
#include <time.h>

#include <string>

#include "platform/system/Clock.h"
#include "platform/testing/CompiledLocale_linux.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/ScopedVariable.h"

namespace imptable {
namespace {

constexpr LocalTime kSaturday{
    .year = 2003, .month = 2, .day = 1, .hour = 13, .minute = 4, .second = 5};

std::unique_ptr<TextEncoding> Utf8() { return std::make_unique<Utf8TextEncoding>(); }

TEST(Clock, WritesYearMonthDayInTheCLocale) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8"}) {
    EXPECT_EQ(MakeClock(locale, Utf8())->ShortDateLongTime(kSaturday), "2003-02-01 13:04:05")
        << locale;
  }
}

TEST(Clock, TakesALocaleThatTheSystemLacksForTheCLocale) {
  EXPECT_EQ(MakeClock("xx_XX.none", Utf8())->ShortDateLongTime(kSaturday), "2003-02-01 13:04:05");
}

TEST(Clock, WritesTheShortDateAndTheLongTimeOfTheLocaleInTheCodePage) {
  const CompiledLocale locale;
  EXPECT_EQ(MakeClock(locale.name(), Utf8())->ShortDateLongTime(kSaturday),
            "\u00e9t\u00e9 Sa 01.02.03 13h04m05");
  const auto latin1 = MakeClock(locale.name(), std::make_unique<Latin1TextEncoding>());
  EXPECT_EQ(latin1->ShortDateLongTime(kSaturday), "\xe9t\xe9 Sa 01.02.03 13h04m05");
}

TEST(Clock, FollowsTheTimesItIsGiven) {
  const auto clock = MakeClock("C", Utf8());
  LocalTime time = kSaturday;
  EXPECT_EQ(clock->ShortDateLongTime(time), "2003-02-01 13:04:05");
  ++time.second;
  EXPECT_EQ(clock->ShortDateLongTime(time), "2003-02-01 13:04:06");
  ++time.year;
  EXPECT_EQ(clock->ShortDateLongTime(time), "2004-02-01 13:04:06");
  EXPECT_EQ(clock->ShortDateLongTime(kSaturday), "2003-02-01 13:04:05");
  EXPECT_EQ(clock->ShortDateLongTime({.year = 99, .month = 12, .day = 31}), "99-12-31 00:00:00");
}

TEST(Clock, WorksTheTextOfASecondOutOnce) {
  class CountingEncoding : public Utf8TextEncoding {
   public:
    explicit CountingEncoding(int& calls) : calls_(calls) {}
    std::string FromUtf8(std::string_view text) const override {
      ++calls_;
      return Utf8TextEncoding::FromUtf8(text);
    }

   private:
    int& calls_;
  };
  int calls = 0;
  const auto clock = MakeClock("C", std::make_unique<CountingEncoding>(calls));
  for (int i = 0; i < 5; ++i) clock->ShortDateLongTime(kSaturday);
  EXPECT_EQ(calls, 1);
}

TEST(Clock, TellsTheLocalTime) {
  const ScopedVariable zone("TZ", "XYZ-05:30");  // east of Greenwich
  const auto clock = SystemClock();
  const time_t before = time(nullptr);
  const LocalTime now = clock->Now();
  const time_t after = time(nullptr);

  tm parts{};
  parts.tm_year = now.year - 1900;
  parts.tm_mon = now.month - 1;
  parts.tm_mday = now.day;
  parts.tm_hour = now.hour;
  parts.tm_min = now.minute;
  parts.tm_sec = now.second;
  const time_t told = timegm(&parts) - (5 * 60 + 30) * 60;
  EXPECT_GE(told, before);
  EXPECT_LE(told, after);
}

TEST(Clock, OfTheSystemFollowsTheEnvironment) {
  const CompiledLocale compiled;
  {
    const ScopedVariable locale("LC_ALL", compiled.name());
    EXPECT_EQ(SystemClock()->ShortDateLongTime(kSaturday), "\xe9t\xe9 Sa 01.02.03 13h04m05");
  }
  const ScopedVariable locale("LC_ALL", "C");
  EXPECT_EQ(SystemClock()->ShortDateLongTime(kSaturday), "2003-02-01 13:04:05");
}

}  // namespace
}  // namespace imptable
