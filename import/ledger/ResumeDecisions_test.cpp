#include "import/ledger/ResumeDecisions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/testing/MemoryFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;

ResumeDecisions DecisionsOf(const std::string& chain, bool skip_mark = false) {
  auto lines = std::make_unique<LineReader>(MemoryFile::Of(chain), "T.REP", false);
  return {std::make_unique<ChainReader>(std::move(lines), "T.REP"), skip_mark};
}

/// What a resumed run does with the source lines "s1", "s2", ...: "skip" or the line it takes.
std::vector<std::string> Decisions(const std::string& chain, std::int32_t lines) {
  ResumeDecisions decisions = DecisionsOf(chain);
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

TEST(ResumeDecisions, TakeAByteOrderMarkForTheEditorsUnlessTheSourcesLineHasOne) {
  const std::string mark = "\xEF\xBB\xBF";
  const std::string chain = "REP 1\n000000011\n" + mark + "1;a\nEND 00000001\n";
  const std::string marked = mark + "1;x";
  for (const bool utf8 : {true, false}) {
    for (const std::string& source : {std::string("1;x"), marked}) {
      ResumeDecisions decisions = DecisionsOf(chain, utf8);
      std::string_view line = source;
      EXPECT_EQ(decisions.Decide(1, line), ResumeDecision::kReplace);
      EXPECT_EQ(line, utf8 && source != marked ? "1;a" : mark + "1;a");
    }
  }
}

TEST(ResumeDecisions, TellASourceThatEndsBeforeTheChainDid) {
  struct Case {
    const char* chain;
    std::int32_t lines;
    bool misses;
  };
  for (const Case& each :
       {Case{"REP 1\nEND 00000003\n", 3, false}, Case{"REP 1\nEND 00000003\n", 2, true},
        Case{"REP 1\n000000031\nx\nEND 00000003\n", 3, false},
        Case{"REP 1\n000000031\nx\nEND 00000003\n", 2, true},
        Case{"REP 1\n000000021\nx\nEND 00000003\n", 2, true},
        Case{"REP 1\nEND 00000000\n", 0, false}}) {
    ResumeDecisions decisions = DecisionsOf(each.chain);
    for (std::int32_t number = 1; number <= each.lines; ++number) {
      std::string_view line;
      decisions.Decide(number, line);
    }
    EXPECT_EQ(decisions.MissesLines(each.lines), each.misses) << each.chain << each.lines;
  }
}

}  // namespace
}  // namespace imptable
