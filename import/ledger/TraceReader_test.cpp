#include "import/ledger/TraceReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/RuntimeFault.h"
#include "platform/testing/MemoryFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
