#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kBanner = " -->   Mode DELETE";

KeyedRun::KindLines Deleted(int read, const std::string& deleted) {
  return {Information(kBanner),
          Information(" ----->    " + std::to_string(read) + " enreg(s) lu(s)"),
          {"  -->   Traitement OK :  " + deleted + " Enregistrement(s) supprimé(s)",
           ReportKind::kSuccess}};
}

TEST(DeleteMode, CountsTheLinesWhoseKeyRemovedARow) {
  KeyedRun run(kByDelete);
  run.Driver("rowcount where 1 = \"2\" = 0");
  run.Driver("rowcount where 1 = \"4\" = 0");
  run.Source({"1;a", "2;b", "3;c", "4;d", "5;e"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1'", "1='2'", "1='3'", "1='4'", "1='5'"));
  EXPECT_EQ(run.ModeLines(), Deleted(5, "3"));
  EXPECT_EQ(run.progress().lines[Outcome::kDeleted], 3);
  EXPECT_THAT(run.Errors(), IsEmpty());
  EXPECT_THAT(run.Lines("report.txt"), ElementsAre("<none>"))
      << "the component writes no line of its own";
}

TEST(DeleteMode, TracesALineThatRemovedNothingAsDone) {
  for (const char* answer : {"rowcount 0", "rowcount -1"}) {
    KeyedRun run(kByDelete);
    run.Driver(answer);
    run.Driver("on SQLExecute 2 return -1 diag 23000 7 \"no\"");
    run.Source({"1;a", "2;b"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2))) << answer;
    EXPECT_THAT(run.Rejected(), ElementsAre("2;b"));
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(2, 7, "no")));
    EXPECT_EQ(run.ModeLines(),
              (KeyedRun::KindLines{
                  Information(kBanner), Information(" ----->    2 enreg(s) lu(s)"),
                  Information(" ----->    1 erreur(s) détectée(s),consultez le fichier .ERR"),
                  Information(" ----->    0 Enregistrement(s) supprimé(s)")}));
  }
}

TEST(DeleteMode, ReportsInEnglish) {
  KeyedRun run(kByDelete);
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Source({"1;a"});
  run.Go();
  EXPECT_EQ(
      run.ModeLines(),
      (KeyedRun::KindLines{Information(" -->   DELETE Mode"),
                           Information(" ----->    1 record(s) read"),
                           {"  -->   Process OK :  1 Record(s) deleted", ReportKind::kSuccess}}));
  run.Source({"1;a", "2;b;x"});
  run.Go();
  EXPECT_THAT(run.ModeLines(), Contains(Information(" ----->    1 Record(s) deleted")));
}

TEST(DeleteMode, NamesTheOwnerAndEachKey) {
  KeyedRun run(kByDelete);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\ncolumn SITE 1 CHAR 4 0 0\n");
  run.Set("Owner", "dbo");
  run.Set("Cle/Index", "CODE,SITE");
  run.Source({"1;a;X"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("DELETE FROM dbo.CLIENT WHERE CODE = ? AND SITE = ?"));
  EXPECT_THAT(
      run.source.LogLines("SQLBindParameter"),
      ElementsAre("SQLBindParameter 1 io=1 ctype=1 sqltype=4 size=10 digits=0 buflen=500 = 0",
                  "SQLBindParameter 2 io=1 ctype=1 sqltype=1 size=4 digits=0 buflen=500 = 0"));
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='X'"));
}

TEST(DeleteMode, BindsAKeyByTheTypeOfItsColumn) {
  KeyedRun run(kByDelete);
  run.Table("column PRIX 6 FLOAT 15 2 1\ncolumn HEURE 11 TIMESTAMP 19 0 1\n");
  run.Set("Cle/Index", "HEURE,PRIX");
  run.Source({"2.5;2006-11-15 08:30:00"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1={2006-11-15 08:30:00} 2=2.5"));
}

TEST(DeleteMode, QuotesNamesWithTheDriversCharacter) {
  KeyedRun run(kByDelete);
  run.Script("column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("DELETE FROM \"CLIENT\" WHERE \"CODE\" = ?"));
}

TEST(DeleteMode, IsPreparedOnceAndLeavesNoStatementBehind) {
  KeyedRun run(kByDelete);
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), SizeIs(1));
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(1));
  const auto drops = run.source.LogLines("SQLFreeStmt");
  EXPECT_THAT(drops, SizeIs(run.source.LogLines("SQLAllocStmt").size()));
  EXPECT_THAT(drops, testing::Each(HasSubstr("DROP")));
}

TEST(DeleteMode, NeverAsksForVersionedColumns) {
  KeyedRun run(kByDelete);
  run.Driver("on SQLSpecialColumns return -1 diag S1000 7 \"no\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.source.LogLines("SQLSpecialColumns"), IsEmpty());
}

TEST(DeleteMode, LooksForKeysWhateverColumnsAreIgnored) {
  KeyedRun run(kByDelete);
  run.Table(
      "column CODE 4 COUNTER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\ncolumn JOUR 9 DATE 10 0 1\n");
  run.Assign({"CODE,COUNTER,(Col)1", "NOM,VARCHAR,Ignore", "JOUR,DATE,Ignore"});
  run.Source({"1;a;no date"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("DELETE FROM CLIENT WHERE CODE = ?"));
  EXPECT_THAT(run.Executed(), ElementsAre("1='1'"));
}

TEST(DeleteMode, LooksForAKeyThatIsItselfIgnored) {
  KeyedRun run(kByDelete);
  run.Table("column CODE 12 VARCHAR 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
  run.Assign({"CODE,VARCHAR,Ignore", "NOM,VARCHAR,(Col)2"});
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='Ignore'"))
      << "its value is the constant that its assignment ends in";
}

TEST(DeleteMode, ParsesTheWholeLineThoughItNeedsOnlyTheKey) {
  KeyedRun run(kByDelete);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn JOUR 9 DATE 10 0 1\ncolumn PRIX 6 FLOAT 15 2 1\n");
  run.Source({"1", "2;2006-11-15;2.5", "3;no date;2.5", "4;;no number", "5;;;x"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1'", "1='2'"));
  EXPECT_THAT(run.Rejected(), ElementsAre("3;no date;2.5", "4;;no number", "5;;;x"));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 3);
}

TEST(DeleteMode, TakesTheKeyFromWhereTheFileHasIt) {
  KeyedRun run(kByDelete);
  run.Assign({"CODE,INTEGER,(Col)2", "NOM,VARCHAR,Null"});
  run.Source({"a;7"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='7'"));
}

TEST(DeleteMode, LooksForNullWithAnEmptyKey) {
  KeyedRun run(kByDelete);
  run.Driver("rowcount 0");
  run.Source({";a", ""});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1=NULL", "1=NULL"));
}

TEST(DeleteMode, EndsWithSuccessWhenACountAloneIsRefused) {
  KeyedRun run(kByDelete);
  run.Driver("on SQLRowCount 1 return -1 diag S1000 7 \"no count\"");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.ModeLines(), Deleted(2, "1"));
}

TEST(DeleteMode, EndsAtTheFirstCallThatFails) {
  for (const char* failure :
       {"on SQLColumns return -1 diag S1000 7 \"no\"",
        "on SQLAllocStmt 2 return -1 diag S1000 7 \"no\"",
        "on SQLPrepare return -1 diag S1000 7 \"no\"", "on SQLPrepare return 1 diag 01000 7 \"no\"",
        "on SQLBindParameter return -1 diag S1000 7 \"no\"",
        "on SQLBindParameter return 1 diag 01000 7 \"no\""}) {
    SCOPED_TRACE(failure);
    KeyedRun run(kByDelete);
    run.Driver(failure);
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.ModeLines(), Deleted(0, "0"));
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 7, "no")));
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_FALSE(run.component.module().run.pre_deletion_failed);
  }
}

}  // namespace
}  // namespace imptable
