#include "import/ledger/TraceLine.h"

#include <gtest/gtest.h>

#include <limits>

namespace imptable {
namespace {

std::string Written(const TraceLine& trace) {
  std::string text = "before ";
  AppendTraceLine(trace, text);
  return text.substr(7);
}

TEST(TraceLine, HasEightDigitsAStatusAndEightDigits) {
  EXPECT_EQ(Written({1, false, 0}), "00000001000000000");
  EXPECT_EQ(Written({2, true, 1}), "00000002100000001");
  EXPECT_EQ(Written({99'999'999, true, 32'768}), "99999999100032768");
}

TEST(TraceLine, TakesTheDigitsThatALargeNumberNeeds) {
  EXPECT_EQ(Written({100'000'000, false, 3}), "100000000000000003");
  EXPECT_EQ(Written({std::numeric_limits<std::int32_t>::max(), true, 3}), "2147483647100000003");
}

TEST(TraceLine, ReadsWhatWasWritten) {
  for (const TraceLine& each : {TraceLine{1, false, 0},
                                {12'345'678, true, 12'345'678},
                                {100'000'000, true, 32'768},
                                {std::numeric_limits<std::int32_t>::max(), false, 0}}) {
    const auto read = ParseTraceLine(Written(each));
    ASSERT_TRUE(read) << each.line_number;
    EXPECT_EQ(read->line_number, each.line_number);
    EXPECT_EQ(read->failed, each.failed);
    EXPECT_EQ(read->errors, each.errors);
  }
}

TEST(TraceLine, RefusesEverythingElse) {
  for (const char* text :
       {"", "0", "0000000100000000", "00000001200000000", "00000001 00000000", "0000000x000000000",
        "00000001000000x00", "-0000001000000000", "+0000001000000000", "000000010-0000001",
        "00000001000000000 ", " 00000001000000000", "99999999999000000000", "0000 001000000000"}) {
    EXPECT_FALSE(ParseTraceLine(text)) << text;
  }
}

}  // namespace
}  // namespace imptable
