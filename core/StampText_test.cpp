#include "core/StampText.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(StampText, WritesTheDayFirstAndTwoDigitsOfEachPart) {
  EXPECT_EQ(StampText({.year = 2026, .month = 3, .day = 4, .hour = 5, .minute = 6, .second = 7}),
            "04/03/26 05:06:07");
  EXPECT_EQ(
      StampText({.year = 1999, .month = 12, .day = 31, .hour = 23, .minute = 59, .second = 58}),
      "31/12/99 23:59:58");
}

TEST(StampText, KeepsBothDigitsOfTheFirstYearsOfACentury) {
  EXPECT_EQ(StampText({.year = 2000, .month = 1, .day = 1}), "01/01/00 00:00:00");
  EXPECT_EQ(StampText({.year = 2109, .month = 1, .day = 1}), "01/01/09 00:00:00");
}

}  // namespace
}  // namespace imptable
