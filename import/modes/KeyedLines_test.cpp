#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct LineCase {
  std::int32_t mode;
  const char* name;
  Outcome changed;       // of a line that changed or deleted a row
  const char* none_yet;  // the report's count of these, when there are none
};

/// What the modes that look for rows make of a line, all alike.
class KeyedLines : public testing::TestWithParam<LineCase> {
 protected:
  std::int64_t Changed() { return run_.progress().lines[GetParam().changed]; }

  KeyedRun run_{GetParam().mode};
};

/// Those that do nothing for a line whose key no row has.
class UnmatchedLines : public KeyedLines {};

TEST_P(KeyedLines, CountOnceHoweverManyRowsTheyChanged) {
  run_.Driver("rowcount 10");
  run_.Driver("rowcount at 2 = -2");
  run_.Source({"1;a", "2;b"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_EQ(Changed(), 2) << "any count but 0 and -1";
}

TEST_P(KeyedLines, AreDoneAfterASuccessWithInformation) {
  run_.Driver("on SQLExecute return 1 diag 01004 5 \"cut\"");
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_EQ(Changed(), 1);
  EXPECT_THAT(run_.Errors(), IsEmpty());
}

TEST_P(KeyedLines, AreRejectedForADuplicateThatTheTaskIgnores) {
  run_.Set("DupKey", 1);
  run_.Set("CodErr", "2627");
  run_.Driver("on SQLExecute 1 return -1 diag 23000 2627 \"duplicate\"");
  run_.Driver("on SQLExecute 3 return -1 diag S1000 7 \"no\"");
  run_.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_EQ(run_.progress().lines[Outcome::kRejected], 2);
  EXPECT_EQ(run_.progress().lines[Outcome::kIgnored], 0);
  EXPECT_THAT(run_.Rejected(), ElementsAre("1;a", "3;c"));
  EXPECT_THAT(run_.Trace(), ElementsAre(Rejected(1), Done(2, 1), Rejected(3, 2)));
  EXPECT_THAT(run_.Errors(), ElementsAre(ErrorLine(1, 2627, "duplicate"), ErrorLine(3, 7, "no")));
}

TEST_P(KeyedLines, TakeACodeOfDuplicatesThatIsNoNumberWithoutAFault) {
  run_.Set("DupKey", 1);
  run_.Set("CodErr", "none");
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_EQ(Changed(), 1);
}

TEST_P(UnmatchedLines, AreTracedAsDone) {
  run_.Driver("rowcount 0");
  run_.Driver("rowcount at 2 = -1");
  run_.Driver("on SQLExecute 3 return -1 diag S1000 7 \"no\"");
  run_.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_EQ(Changed(), 0);
  EXPECT_EQ(run_.progress().lines[Outcome::kUnmatched], 1);
  EXPECT_EQ(run_.progress().lines[Outcome::kUncounted], 1);
  EXPECT_EQ(run_.progress().lines[Outcome::kRejected], 1);
  EXPECT_THAT(run_.Trace(), ElementsAre(Done(1), Done(2), Rejected(3)));
  EXPECT_THAT(run_.Rejected(), ElementsAre("3;c"));
  EXPECT_THAT(run_.Report(), Contains(GetParam().none_yet));
}

TEST_P(UnmatchedLines, AreThoseWhoseCountTheDatabaseRefusesAndTheErrorFileSaysSo) {
  for (const char* failure : {"on SQLRowCount 1 return -1 diag S1000 7 \"no count\"",
                              "on SQLRowCount 1 return 1 diag 01000 7 \"no count\""}) {
    KeyedRun run(GetParam().mode);
    run.Driver(failure);
    run.Source({"1;a", "2;b"});
    EXPECT_EQ(run.Go(), 3) << failure;
    EXPECT_EQ(run.progress().lines[GetParam().changed], 1);
    EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 7, "no count")));
    EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Done(2)));
    EXPECT_THAT(run.Rejected(), IsEmpty());
  }
}

constexpr LineCase kUpdateLines{kByUpdate, "Update", Outcome::kModified,
                                " ----->    0 Enregistrement(s) modifié(s)"};
constexpr LineCase kUpdateInsertLines{kByUpdateInsert, "UpdateInsert", Outcome::kModified, ""};
constexpr LineCase kDeleteLines{kByDelete, "Delete", Outcome::kDeleted,
                                " ----->    0 Enregistrement(s) supprimé(s)"};

std::string NameOf(const testing::TestParamInfo<LineCase>& instance) { return instance.param.name; }

INSTANTIATE_TEST_SUITE_P(Mode, KeyedLines,
                         testing::Values(kUpdateLines, kUpdateInsertLines, kDeleteLines), NameOf);
INSTANTIATE_TEST_SUITE_P(Mode, UnmatchedLines, testing::Values(kUpdateLines, kDeleteLines), NameOf);

}  // namespace
}  // namespace imptable
