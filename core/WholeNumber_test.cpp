#include <gtest/gtest.h>

#include "core/NumberText.h"

namespace imptable {
namespace {

TEST(NumberFromText, TakesOnlyWholeDecimalNumbersOf32Bits) {
  EXPECT_EQ(NumberFromText("0"), 0);
  EXPECT_EQ(NumberFromText("2147483647"), 2147483647);
  EXPECT_EQ(NumberFromText("-2147483648"), -2147483647 - 1);
  for (const char* text : {"", " 1", "1 ", "1.5", "+1", "0x10", "2147483648", "abc"}) {
    EXPECT_FALSE(NumberFromText(text)) << text;
  }
}

TEST(WholeNumber, MayHaveBlanksAroundItAndNoSign) {
  EXPECT_EQ(ReadWholeNumber(" 12 "), 12);
  for (const char* text : {"-1", "+1", "1.0", "1 2", "", "2147483648"}) {
    EXPECT_FALSE(ReadWholeNumber(text)) << text;
  }
}

}  // namespace
}  // namespace imptable
