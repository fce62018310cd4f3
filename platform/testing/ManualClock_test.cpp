#include "platform/testing/ManualClock.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(ManualClock, StandsAtTheTimeItWasGiven) {
  ManualClock clock({.year = 2003, .month = 2, .day = 1, .hour = 23, .minute = 4, .second = 5});
  EXPECT_EQ(clock.ShortDateLongTime(clock.Now()), "01/02/2003 23:04:05");

  clock.Set({.year = 1999, .month = 12, .day = 31, .hour = 0, .minute = 59, .second = 0});
  EXPECT_EQ(clock.ShortDateLongTime(clock.Now()), "31/12/1999 00:59:00");
}

}  // namespace
}  // namespace imptable
