// Layouts with which no line of the source can give a value.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// Expects that the run ends before its first line and says why.
void ExpectRefusal(ImportRun& run) {
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_EQ(run.progress().read, 0);
  EXPECT_THAT(run.Report(), Contains(AllOf(HasSubstr("Erreur lors du traitement - N° 5 ,"),
                                           HasSubstr("\"Champs\""), HasSubstr("\"NombreColonnes\""),
                                           HasSubstr("aucune ligne"))));
}

constexpr std::int32_t kByInsert = 0;

class AllNull : public testing::TestWithParam<std::int32_t> {
 protected:
  AllNull() : run_(GetParam()) { run_.Source({"1;a"}); }

  KeyedRun run_;
};

TEST_P(AllNull, IsRefusedForATaskWithoutColumns) {
  run_.Set("FormatFile", 0);
  ExpectRefusal(run_);
}

TEST_P(AllNull, IsRefusedForColumnsWithoutWidth) {
  run_.Set("FormatFile", 0);
  run_.Columns({"1,,0", "1,,0"});
  ExpectRefusal(run_);
}

TEST_P(AllNull, IsRefusedForOriginsThatAreAllNull) {
  run_.Assign({"Null", "Null"});
  ExpectRefusal(run_);
}

TEST_P(AllNull, IsRefusedForConstantsThatAreBlankOrMissing) {
  run_.Set("Null", 1);
  run_.Assign({"  "});
  ExpectRefusal(run_);
}

TEST_P(AllNull, IsRefusedForFieldsThatNoLineCanHave) {
  run_.Assign({"(Col)3", "(Col)4"});
  ExpectRefusal(run_);
}

TEST(AllLeftOut, IsRefusedByAnInsertBeforeAnythingIsDeleted) {
  ImportRun run;
  run.Assign({"Ignore", "Ignore"});
  run.Set("Suppression", 1);
  run.Source({"1;a"});
  ExpectRefusal(run);
  EXPECT_THAT(run.source.LogLines("SQLExecDirect"), IsEmpty());
}

TEST_P(AllNull, IsRefusedInEnglish) {
  run_.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run_.Assign({"Null", "Null"});
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_THAT(run_.Report(), Contains(HasSubstr("no line would give a value: describe")));
}

TEST_P(AllNull, IsNoLayoutOfWhichALineGivesTheKey) {
  run_.Assign({"(Col)1", "Null"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Mode, AllNull,
                         testing::Values(kByInsert, kByUpdate, kByUpdateInsert, kByDelete));

TEST(NullKey, IsRefusedWhereLinesOnlyLookForRows) {
  for (const std::int32_t mode : {kByUpdate, kByDelete}) {
    KeyedRun run(mode);
    run.Assign({"Null", "(Col)2"});
    run.Source({"1;a"});
    ExpectRefusal(run);
    EXPECT_THAT(run.Report(), Contains(HasSubstr("\"CODE\"")));
  }
}

TEST(NullKey, IsTakenWhereLinesThatFindNoRowAreInserted) {
  for (const std::int32_t mode : {kByInsert, kByUpdateInsert}) {
    KeyedRun run(mode);
    run.Driver("rowcount 0");
    run.Assign({"Null", "(Col)2"});
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 2);
    EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
  }
}

TEST(NullKey, IsTakenFromALineThatHasNone) {
  KeyedRun run(kByDelete);
  run.Source({";a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), SizeIs(1));
}

}  // namespace
}  // namespace imptable
