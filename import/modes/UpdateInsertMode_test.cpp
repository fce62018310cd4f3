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

constexpr const char* kBanner = " -->   Mode UPDATE/INSERT";
constexpr const char* kNothingDone =
    "  -->   Traitement OK :  0 Enregistrement(s) modifié(s), 0 Enregistrement(s) inseré(s) -- ";

TEST(UpdateInsertMode, ChangesARowThatExistsAndInsertsNothing) {
  KeyedRun run(kByUpdateInsert);
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a' 3='1'")) << "the UPDATE alone";
  EXPECT_EQ(run.progress().lines[Outcome::kModified], 1);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 0);
}

TEST(UpdateInsertMode, InsertsALineThatChangedNoRow) {
  for (const char* answer : {"rowcount 0", "rowcount -1"}) {
    KeyedRun run(kByUpdateInsert);
    run.Driver(answer);
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 2);
    EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a' 3='1'", "1='1' 2='a'")) << answer;
    EXPECT_EQ(run.progress().lines[Outcome::kModified], 0);
    EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
  }
}

TEST(UpdateInsertMode, ReportsBothCountsOnOneLine) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("rowcount where 3 = \"3\" = 0");
  run.Source({"1;a", "2;b", "3;c", "4;d"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(
      run.ModeLines(),
      (KeyedRun::KindLines{Information(kBanner), Information(" ----->    4 enreg(s) lu(s)"),
                           Information("  -->   Traitement OK :  3 Enregistrement(s) modifié(s), "
                                       "1 Enregistrement(s) inseré(s) -- ")}));
  EXPECT_THAT(run.Lines("report.txt"), ElementsAre("<none>"))
      << "the component writes no line of its own";
}

TEST(UpdateInsertMode, ReportsInEnglish) {
  KeyedRun run(kByUpdateInsert);
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Driver("rowcount where 3 = \"2\" = 0");
  run.Source({"1;a", "2;b", "3;c;x"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(
      run.ModeLines(),
      (KeyedRun::KindLines{Information(" -->   UPDATE/INSERT mode"),
                           Information(" ----->    3 record(s) read"),
                           Information(" ----->    1 error(s) detected, refer to .ERR file"),
                           Information(" ----->    1 Record(s) edited, 1 Record(s) inserted ")}));
}

TEST(UpdateInsertMode, TakesALineWhoseUpdateFailsForOneErrorWithoutAnInsert) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("on SQLExecute where text like \"UPDATE%\" return -1 diag 22018 5 \"no number\"");
  run.Source({"7;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='7' 2='a' 3='7'"));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
  EXPECT_THAT(run.Rejected(), ElementsAre("7;a"));
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1)));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 5, "no number")));
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{
                Information(kBanner), Information(" ----->    1 enreg(s) lu(s)"),
                Information(" ----->    1 erreur(s) détectée(s),consultez le fichier .ERR"),
                Information(" ----->    0 Enregistrement(s) modifié(s), "
                            "0 Enregistrement(s) inseré(s) -- ")}));
}

TEST(UpdateInsertMode, TakesALineWhoseInsertFailsForOneError) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("rowcount 0");
  run.Driver("on SQLExecute where text like \"INSERT%\" return -1 diag 23000 19 \"refused\"");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 0);
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a", "2;b"));
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1), Rejected(2, 2)));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 19, "refused"), ErrorLine(2, 19, "refused")));
}

TEST(UpdateInsertMode, CountsADuplicateThatTheTaskIgnoresAsAnErrorOfEitherStatement) {
  KeyedRun run(kByUpdateInsert);
  run.Set("DupKey", 1);
  run.Set("CodErr", "2627");
  run.Driver("rowcount 0");
  run.Driver("on SQLExecute 1 return -1 diag 23000 2627 \"duplicate\"");
  run.Driver("on SQLExecute 3 return -1 diag 23000 2627 \"duplicate\"");
  run.Driver("on SQLExecute 5 return -1 diag S1000 7 \"no\"");
  run.Source({"1;a", "2;b", "3;c", "4;d"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 3);
  EXPECT_EQ(run.progress().lines[Outcome::kIgnored], 0);
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a", "2;b", "3;c"));
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1), Rejected(2, 2), Rejected(3, 3), Done(4, 3)));
}

TEST(UpdateInsertMode, TakesSuccessWithInformationForDoneInBothStatements) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("on SQLExecute return 1 diag 01004 5 \"cut\"");
  run.Driver("rowcount at 2 = 0");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kModified], 1);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
}

TEST(UpdateInsertMode, InsertsAfterReportingARowCountThatFails) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("on SQLRowCount return -1 diag S1000 7 \"no count\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), SizeIs(2));
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 7, "no count")));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1)));
}

TEST(UpdateInsertMode, TracesChangedAndInsertedLinesAsDone) {
  KeyedRun run(kByUpdateInsert);
  run.Driver("rowcount where 3 = \"2\" = 0");
  run.Source({"1;a", "2;b", "3;c;x"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Done(2), Rejected(3)));
}

TEST(UpdateInsertMode, StopsAfterTheLineThatCrossesTheLimitWhicheverStatementFails) {
  for (const char* statement : {"UPDATE%", "INSERT%"}) {
    KeyedRun run(kByUpdateInsert);
    run.Set("Erreurs", "1");
    run.Driver("rowcount 0");
    run.Driver(std::string("on SQLExecute where text like \"") + statement +
               "\" return -1 diag S1000 7 \"no\"");
    run.Source({"1;a", "2;b", "3;c"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.progress().read, 2) << statement;
    EXPECT_THAT(run.Rejected(), ElementsAre("1;a", "2;b"));
  }
}

TEST(UpdateInsertMode, PreparesTheInsertAndThenTheUpdateOnceForAllLines) {
  KeyedRun run(kByUpdateInsert);
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\ncolumn NUM 4 COUNTER 10 0 0\n");
  run.Set("Owner", "dbo");
  run.Source({"1;a;5", "2;b;6"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Prepared(), ElementsAre("INSERT INTO dbo.CLIENT (CODE,NOM,NUM) VALUES (?, ?, ?)",
                                          "UPDATE dbo.CLIENT SET CODE = ?, NOM = ? WHERE CODE = ?"))
      << "a column that the database counts is inserted but never changed";
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(6));
}

TEST(UpdateInsertMode, GivesBothStatementsTheValuesOfTheSameLine) {
  KeyedRun run(kByUpdateInsert);
  run.Table(
      "column NOM 12 VARCHAR 30 0 1\ncolumn PRIX 6 FLOAT 15 2 1\ncolumn JOUR 9 DATE 10 0 1\n");
  run.Driver("rowcount 0");
  run.Set("Cle/Index", "JOUR,NOM");
  run.Source({"a;2.5;2006-11-15", ";;"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(
      run.Executed(),
      ElementsAre("1='a' 2=2.5 3={2006-11-15} 4={2006-11-15} 5='a'", "1='a' 2=2.5 3={2006-11-15}",
                  "1=NULL 2=NULL 3=NULL 4=NULL 5=NULL", "1=NULL 2=NULL 3=NULL"));
}

TEST(UpdateInsertMode, EndsAtTheFirstCallThatFails) {
  // Statements 1 and 2 are the catalogue's; parameters 1 and 2 the INSERT's.
  for (const char* failure : {"on SQLColumns return -1 diag S1000 7 \"no\"",
                              "on SQLSpecialColumns return -1 diag S1000 7 \"no\"",
                              "on SQLAllocStmt 3 return -1 diag S1000 7 \"no\"",
                              "on SQLPrepare 1 return -1 diag S1000 7 \"no\"",
                              "on SQLPrepare 1 return 1 diag 01000 7 \"no\"",
                              "on SQLBindParameter 2 return -1 diag S1000 7 \"no\"",
                              "on SQLBindParameter 2 return 1 diag 01000 7 \"no\"",
                              "on SQLAllocStmt 4 return -1 diag S1000 7 \"no\"",
                              "on SQLPrepare 2 return -1 diag S1000 7 \"no\"",
                              "on SQLPrepare 2 return 1 diag 01000 7 \"no\"",
                              "on SQLBindParameter 5 return -1 diag S1000 7 \"no\""}) {
    SCOPED_TRACE(failure);
    KeyedRun run(kByUpdateInsert);
    run.Driver(failure);
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.ModeLines(),
              (KeyedRun::KindLines{Information(kBanner), Information(" ----->    0 enreg(s) lu(s)"),
                                   Information(kNothingDone)}));
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 7, "no")));
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_EQ(run.OpenStatements(), 0);
  }
}

TEST(UpdateInsertMode, LeavesNoStatementBehind) {
  KeyedRun run(kByUpdateInsert);
  run.Source({"1;a"});
  run.Go();
  const auto drops = run.source.LogLines("SQLFreeStmt");
  EXPECT_THAT(drops, SizeIs(run.source.LogLines("SQLAllocStmt").size()));
  EXPECT_THAT(drops, testing::Each(HasSubstr("DROP")));
}

TEST(UpdateInsertMode, YieldsOnceALineWhicheverStatementItTook) {
  const auto yields = [](const char* answer) {
    KeyedRun run(kByUpdateInsert);
    run.Driver(answer);
    run.Source({"1;a", "2;b", "3;c"});
    run.Go();
    return run.component.message_loop.yields();
  };
  EXPECT_EQ(yields("rowcount 1"), yields("rowcount 0"));
}

TEST(InsertUpdateMode, DeletesAndReportsButImportsNothing) {
  KeyedRun run(2);
  run.Set("Suppression", 1);
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{Information(" -->   Suppression Globale des données")}));
  EXPECT_THAT(run.Direct(), ElementsAre("TRUNCATE TABLE CLIENT"));
  EXPECT_THAT(run.Prepared(), IsEmpty());
  EXPECT_EQ(run.progress().read, 0);
  EXPECT_THAT(run.Trace(), ElementsAre("<none>"));
  EXPECT_THAT(run.Errors(), ElementsAre("<none>"));
}

}  // namespace
}  // namespace imptable
