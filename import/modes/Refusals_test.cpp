// Refusals that end as a success with information: nothing was done.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kMariadb = "info 17 MariaDB";

TEST(Refusal, IsAnInsertWithInformationThatInsertedNoRow) {
  ImportRun run;
  run.Driver("on SQLExecute 2 return 1 diag 01000 1265 \"Data truncated\"");
  run.Driver("rowcount 0");
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b"));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(2, 1265, "Data truncated")));
}

TEST(Refusal, IsNoInsertWithInformationThatInsertedARowOrDoesNotSay) {
  for (const char* count : {"rowcount 1", "rowcount -1", "on SQLRowCount return -1"}) {
    ImportRun run;
    run.Driver("on SQLExecute return 1 diag 01000 1265 \"Data truncated\"");
    run.Driver(count);
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 2) << count;
    EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
    EXPECT_THAT(run.Errors(), IsEmpty());
  }
}

TEST(Refusal, OfAnInsertMayBeTheDuplicateThatTheTaskIgnores) {
  ImportRun run;
  run.Set("DupKey", 1);
  run.Set("CodErr", "1265");
  run.Driver("on SQLExecute return 1 diag 01000 1265 \"Data truncated\"");
  run.Driver("rowcount 0");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kIgnored], 1);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 0);
}

TEST(Refusal, IsALineWhoseTextTheDriverWouldCutAtANul) {
  const std::string cut("2;b\0c", 5);
  ImportRun cutting;
  cutting.Driver("info 17 PostgreSQL");
  cutting.Source({"1;a", cut, "3;c"});
  EXPECT_EQ(cutting.Go(), 3);
  EXPECT_EQ(cutting.progress().lines[Outcome::kInserted], 2);
  EXPECT_THAT(cutting.Rejected(), ElementsAre(cut));
  EXPECT_THAT(cutting.Errors(), ElementsAre(testing::HasSubstr("contient un caractère nul")));
  ImportRun whole;
  whole.Source({"1;a", cut});
  EXPECT_EQ(whole.Go(), 2) << "other drivers are told the length";
}

class KeyedRefusal : public testing::TestWithParam<std::int32_t> {};

TEST_P(KeyedRefusal, IsAnInformationWithAServersCodeWhereTheDialectSaysSo) {
  KeyedRun run(GetParam());
  run.Driver(kMariadb);
  run.Driver("on SQLExecute 2 return 1 diag 01000 1265 \"Data truncated\"");
  run.Driver("rowcount at 2 = 0");
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), SizeIs(3)) << "no INSERT after a refused UPDATE";
  EXPECT_EQ(run.progress().lines[Outcome::kModified] + run.progress().lines[Outcome::kDeleted], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 0);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b"));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(2, 1265, "Data truncated")));
}

TEST_P(KeyedRefusal, IsNoInformationOfTheDriversOwnAndNoneWithAChangedRow) {
  for (const char* answer : {"on SQLExecute 1 return 1 diag 01S07 0 \"fraction\"",
                             "on SQLExecute 1 return 1 diag 01000 1265 \"Data truncated\""}) {
    KeyedRun run(GetParam());
    run.Driver(kMariadb);
    run.Driver(answer);
    run.Driver(std::string(answer).find("01S07") != std::string::npos ? "rowcount 0"
                                                                      : "rowcount 1");
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 2) << answer;
    EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
  }
}

TEST_P(KeyedRefusal, IsNoInformationOfADatabaseWhoseDialectIsUnknown) {
  KeyedRun run(GetParam());
  run.Driver("on SQLExecute 1 return 1 diag 01000 1265 \"Data truncated\"");
  run.Driver("rowcount at 1 = 0");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
}

TEST_P(KeyedRefusal, IsWrittenThoughTheTaskIgnoresDuplicatesOfThatCode) {
  KeyedRun run(GetParam());
  run.Set("DupKey", 1);
  run.Set("CodErr", "2627");
  run.Driver("on SQLExecute 1 return -1 diag 23000 2627 \"duplicate\" diag 01000 3621 \"ended\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a"));
  EXPECT_THAT(run.Errors(),
              ElementsAre(ErrorLine(1, 2627, "duplicate"), ErrorLine(1, 3621, "ended")));
}

INSTANTIATE_TEST_SUITE_P(Mode, KeyedRefusal,
                         testing::Values(kByUpdate, kByUpdateInsert, kByDelete));

TEST(Refusal, OfTheInsertAfterAnUpdateIsAnErrorThatNoDuplicateExcuses) {
  KeyedRun run(kByUpdateInsert);
  run.Set("DupKey", 1);
  run.Set("CodErr", "1265");
  run.Driver("rowcount 0");
  run.Driver("on SQLExecute where text like \"INSERT%\" return 1 diag 01000 1265 \"truncated\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 0);
  EXPECT_EQ(run.progress().lines[Outcome::kIgnored], 0);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 1265, "truncated")));
}

}  // namespace
}  // namespace imptable
