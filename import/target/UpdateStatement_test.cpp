#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The success line doesn't go through the host's report writer.
const KeyedRun::KindLines kNothingUpdated{Information(" -->   Mode UPDATE"),
                                          Information(" ----->    0 enreg(s) lu(s)")};

std::string Prepared(KeyedRun& run) {
  run.Source({""});
  run.Go();
  const auto texts = run.Prepared();
  return texts.size() == 1 ? texts[0] : std::to_string(texts.size()) + " prepared";
}

TEST(UpdateStatement, SetsEveryColumnTheKeyIncludedAndLooksForTheKey) {
  KeyedRun run(kByUpdate);
  EXPECT_EQ(Prepared(run), "UPDATE CLIENT SET CODE = ?, NOM = ? WHERE CODE = ?");
}

TEST(UpdateStatement, NamesTheOwnerAndNeverWritesACountedColumn) {
  KeyedRun run(kByUpdate);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\ncolumn NUM 4 COUNTER 10 0 0\n");
  run.Set("Owner", "dbo");
  EXPECT_EQ(Prepared(run), "UPDATE dbo.CLIENT SET CODE = ?, NOM = ? WHERE CODE = ?");
}

TEST(UpdateStatement, TakesOnlyTheExactTypeNameForACountedColumn) {
  for (const char* type :
       {"counter", "Counter", "\"COUNTER \"", "COUNTERS", "\" COUNTER\"", "\"\""}) {
    KeyedRun run(kByUpdate);
    run.Table(std::string("column CODE 4 INTEGER 10 0 0\ncolumn NUM 4 ") + type + " 10 0 0\n");
    EXPECT_EQ(Prepared(run), "UPDATE CLIENT SET CODE = ?, NUM = ? WHERE CODE = ?") << type;
  }
}

TEST(UpdateStatement, StillLooksForACountedColumnThatIsTheKey) {
  KeyedRun run(kByUpdate);
  run.Table("column NUM 4 COUNTER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
  run.Set("Cle/Index", "NUM");
  run.Source({"7;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("UPDATE CLIENT SET NOM = ? WHERE NUM = ?"));
  EXPECT_THAT(run.Executed(), ElementsAre("1='a' 2='7'"));
}

TEST(UpdateStatement, QuotesEachNameByItself) {
  KeyedRun run(kByUpdate);
  run.Script("column CODE 4 INTEGER 10 0 0\ncolumn \"B C\" 12 VARCHAR 30 0 1\ninfo 29 \"`\"\n");
  run.Set("Owner", "dbo");
  run.Set("Cle/Index", "CODE,B C");
  EXPECT_EQ(Prepared(run),
            "UPDATE `dbo`.`CLIENT` SET `CODE` = ?, `B C` = ? WHERE `CODE` = ? AND `B C` = ?");
}

TEST(UpdateStatement, LeavesOutIgnoredAndVersionedColumnsButLooksForThemWhenTheyAreTheKey) {
  KeyedRun run(kByUpdate);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn STAMP -2 TIMESTAMP 8 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\nrowversion STAMP\n");
  run.Assign({"CODE,INTEGER,(Col)1", "STAMP,TIMESTAMP,(Col)2", "NOM,VARCHAR,Ignore"});
  run.Set("Cle/Index", "STAMP");
  run.Source({"1;x;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("UPDATE CLIENT SET CODE = ? WHERE STAMP = ?"));
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='x'"));
}

TEST(UpdateStatement, NumbersTheKeysAfterTheColumnsAndBindsThemToTheSameValues) {
  KeyedRun run(kByUpdate);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn SITE 1 CHAR 4 0 0\ncolumn PRIX 6 FLOAT 15 2 1\n"
      "column JOUR 9 DATE 10 0 1\ncolumn HEURE 11 TIMESTAMP 19 0 1\n");
  run.Set("Cle/Index", "JOUR,PRIX,SITE,HEURE");
  run.Source({"1;A;2.5;2006-11-15;2006-11-15 08:30:00"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(
      run.source.LogLines("SQLBindParameter"),
      ElementsAre("SQLBindParameter 1 io=1 ctype=1 sqltype=4 size=10 digits=0 buflen=500 = 0",
                  "SQLBindParameter 2 io=1 ctype=1 sqltype=1 size=4 digits=0 buflen=500 = 0",
                  "SQLBindParameter 3 io=1 ctype=8 sqltype=6 size=15 digits=2 buflen=0 = 0",
                  "SQLBindParameter 4 io=1 ctype=9 sqltype=9 size=0 digits=0 buflen=0 = 0",
                  "SQLBindParameter 5 io=1 ctype=11 sqltype=11 size=0 digits=0 buflen=0 = 0",
                  "SQLBindParameter 6 io=1 ctype=9 sqltype=9 size=0 digits=0 buflen=0 = 0",
                  "SQLBindParameter 7 io=1 ctype=8 sqltype=6 size=15 digits=2 buflen=0 = 0",
                  "SQLBindParameter 8 io=1 ctype=1 sqltype=1 size=4 digits=0 buflen=500 = 0",
                  "SQLBindParameter 9 io=1 ctype=11 sqltype=11 size=0 digits=0 buflen=0 = 0"));
  EXPECT_THAT(run.Executed(),
              ElementsAre("1='1' 2='A' 3=2.5 4={2006-11-15} 5={2006-11-15 08:30:00} "
                          "6={2006-11-15} 7=2.5 8='A' 9={2006-11-15 08:30:00}"));
}

TEST(UpdateStatement, IsPreparedAndBoundOnceForAllLines) {
  KeyedRun run(kByUpdate);
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), SizeIs(1));
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(3));
  EXPECT_THAT(run.Executed(),
              ElementsAre("1='1' 2='a' 3='1'", "1='2' 2='b' 3='2'", "1='3' 2='c' 3='3'"));
}

TEST(UpdateStatement, HasNothingToSetWhenEveryColumnIsIgnoredOrCounted) {
  KeyedRun run(kByUpdate);
  run.Table("column NUM 4 COUNTER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
  run.Assign({"NUM,COUNTER,(Col)1", "NOM,VARCHAR,Ignore"});
  run.Set("Cle/Index", "NUM");
  run.Driver("on SQLPrepare return -1 diag 42000 1064 \"syntax\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Prepared(), ElementsAre("UPDATE CLIENT SET  WHERE NUM = ?"));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 1064, "syntax")));
  EXPECT_EQ(run.ModeLines(), kNothingUpdated);
  EXPECT_EQ(run.progress().read, 0);
}

TEST(UpdateStatement, EndsTheModeAtTheFirstCallThatFails) {
  for (const char* failure :
       {"on SQLColumns return -1 diag S1000 7 \"no\"",
        "on SQLFetch 2 return -1 diag S1000 7 \"no\"",
        "on SQLSpecialColumns return -1 diag S1000 7 \"no\"",
        "on SQLAllocStmt 3 return -1 diag S1000 7 \"no\"",
        "on SQLPrepare return -1 diag S1000 7 \"no\"", "on SQLPrepare return 1 diag 01000 7 \"no\"",
        "on SQLBindParameter 1 return -1 diag S1000 7 \"no\"",
        "on SQLBindParameter 3 return -1 diag S1000 7 \"no\"",
        "on SQLBindParameter 3 return 1 diag 01000 7 \"no\""}) {
    SCOPED_TRACE(failure);
    KeyedRun run(kByUpdate);
    run.Driver(failure);
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.ModeLines(), kNothingUpdated);
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 7, "no")));
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_FALSE(run.component.module().run.pre_deletion_failed);
  }
}

TEST(UpdateStatement, BindsNothingMoreAfterABindingThatFails) {
  KeyedRun run(kByUpdate);
  run.Driver("on SQLBindParameter 2 return -1 diag S1000 7 \"no\"");
  run.Source({"1;a"});
  run.Go();
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(2));
}

TEST(UpdateStatement, IsDroppedAtTheEndAndAfterAFailure) {
  for (const char* behaviour : {"", "on SQLPrepare return -1 diag S1000 7 \"no\"",
                                "on SQLBindParameter 1 return -1 diag S1000 7 \"no\"",
                                "on SQLExecute return -1 diag S1000 7 \"no\""}) {
    KeyedRun run(kByUpdate);
    run.Driver(behaviour);
    run.Source({"1;a"});
    run.Go();
    const auto drops = run.source.LogLines("SQLFreeStmt");
    EXPECT_EQ(std::count_if(drops.begin(), drops.end(),
                            [](const auto& line) { return line.find("DROP") != line.npos; }),
              static_cast<std::ptrdiff_t>(run.source.LogLines("SQLAllocStmt").size()))
        << behaviour;
  }
}

}  // namespace
}  // namespace imptable
