#include "import/ResumeDecisions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/testing/MemoryFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;

/// What a resumed run does with the source lines "s1", "s2", ...: "skip" or the line it takes.
std::vector<std::string> Decisions(const std::string& chain, std::int32_t lines) {
  ResumeDecisions decisions(std::make_unique<ChainReader>(
      std::make_unique<LineReader>(MemoryFile::Of(chain), "T.REP", false), "T.REP"));
  std::vector<std::string> taken;
  for (std::int32_t number = 1; number <= lines; ++number) {
    const std::string source = "s" + std::to_string(number);
    std::string_view line = source;
    switch (decisions.Decide(number, line)) {
      case ResumeDecision::kSkip:
        taken.emplace_back("skip");
        break;
      case ResumeDecision::kTake:
        EXPECT_EQ(line, source);
        [[fallthrough]];
      case ResumeDecision::kReplace:
        taken.emplace_back(line);
        break;
    }
  }
  return taken;
}

TEST(ResumeDecisions, SkipLinesDoneAndReplaceRejectedOnes) {
  EXPECT_THAT(Decisions("REP 1\n000000021\nmended\nEND 00000003\n", 3),
              ElementsAre("skip", "mended", "skip"));
}

TEST(ResumeDecisions, TakeTheLinesThatTheChainDidNotComeTo) {
  EXPECT_THAT(Decisions("REP 1\n000000021\nmended\nEND 00000002\n", 4),
              ElementsAre("skip", "mended", "s3", "s4"));
  EXPECT_THAT(Decisions("REP 1\nEND 00000000\n", 2), ElementsAre("s1", "s2"));
}

TEST(ResumeDecisions, TakeTheSourcesOwnLineWhereNoTextIsKept) {
  EXPECT_THAT(Decisions("REP 1\n000000010\n000000021\n\n000000040\nEND 00000005\n", 6),
              ElementsAre("s1", "", "skip", "s4", "skip", "s6"));
}

}  // namespace
}  // namespace imptable
