#include "import/ledger/Trace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "core/RuntimeFault.h"
#include "platform/testing/MemoryFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

std::vector<std::int32_t> LinesOf(const std::string& trace) {
  TraceReader reader(std::make_unique<LineReader>(MemoryFile::Of(trace), "T.TRC", false), "T.TRC");
  std::vector<std::int32_t> lines;
  while (const auto line = reader.Next()) lines.push_back(line->line_number);
  return lines;
}

constexpr const char* kFirstDone = "00000001000000000\n";
constexpr const char* kSecondFailed = "00000002100000001\n";

TEST(TraceReader, CountsATornLastLineAsAbsent) {
  for (const char* torn : {"0", "00000003", "000000030", "0000000310000000", "00000003100000002"}) {
    EXPECT_THAT(LinesOf(std::string(kFirstDone) + kSecondFailed + torn), ElementsAre(1, 2)) << torn;
  }
  EXPECT_THAT(LinesOf("0000000110"), IsEmpty());
}

TEST(TraceReader, ReadsTheOtherSystemsLineEnds) {
  EXPECT_THAT(LinesOf("00000001000000000\r\n00000004100000001\r\n"), ElementsAre(1, 4));
}

TEST(TraceReader, NamesADamagedLine) {
  for (const char* const damaged : {"0000000x100000001\n", "00000001100000001\n", "\n"}) {
    try {
      LinesOf(std::string(kFirstDone) + damaged + kSecondFailed);
      FAIL() << "the damage was passed over: " << damaged;
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.number(), FaultNumber::kTypeMismatch);
      EXPECT_EQ(fault.detail(), "T.TRC, 2");
    }
  }
}

}  // namespace
}  // namespace imptable
