#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

std::string Prepared(ImportRun& run) {
  run.Source({"1;a"});
  run.Go();
  const auto lines = run.source.LogLines("SQLPrepare");
  return lines.size() == 1 ? lines[0] : std::to_string(lines.size()) + " prepared";
}

/// The closing lines of an import that read nothing, after its banner.
void ExpectNothingRead(ImportRun& run) {
  const auto report = run.Report();
  ASSERT_THAT(report, SizeIs(8));
  EXPECT_EQ(report[4], " -->   Mode INSERT");
  EXPECT_EQ(report[5], " ----->    0 enreg(s) lu(s)");
  EXPECT_EQ(report[6], "  -->   Traitement OK : 0 Enregistrement(s) copié(s)");
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_EQ(run.progress().read, 0);
}

TEST(InsertStatement, NamesTableAndColumnsInQuotes) {
  ImportRun run;
  EXPECT_EQ(Prepared(run),
            "SQLPrepare INSERT INTO \"CLIENT\" (\"CODE\",\"NOM\") VALUES (?, ?) = 0");
}

TEST(InsertStatement, NamesTheOwnerWhenThereIsOne) {
  ImportRun run;
  run.Set("Owner", "dbo");
  EXPECT_EQ(Prepared(run),
            "SQLPrepare INSERT INTO \"dbo\".\"CLIENT\" (\"CODE\",\"NOM\") VALUES (?, ?) = 0");
}

TEST(InsertStatement, UsesTheDriversQuoteCharacter) {
  ImportRun run;
  run.Driver("info 29 \"`\"");
  run.Set("Owner", "dbo");
  EXPECT_EQ(Prepared(run),
            "SQLPrepare INSERT INTO `dbo`.`CLIENT` (`CODE`,`NOM`) VALUES (?, ?) = 0");
}

TEST(InsertStatement, QuotesNothingWhenTheDriverHasNoQuoteCharacter) {
  ImportRun run;
  run.Driver("info 29 \" \"");
  EXPECT_EQ(Prepared(run), "SQLPrepare INSERT INTO CLIENT (CODE,NOM) VALUES (?, ?) = 0");
}

TEST(InsertStatement, HasOneParameterForOneColumn) {
  ImportRun run;
  run.Script("column MY_NAME 12 VARCHAR 30 0 1\n");
  EXPECT_EQ(Prepared(run), "SQLPrepare INSERT INTO \"CLIENT\" (\"MY_NAME\") VALUES (?) = 0");
}

TEST(InsertStatement, LeavesOutTheColumnsThatTheDatabaseVersions) {
  ImportRun run;
  run.Script(
      "column CODE 4 INTEGER 10 0 0\ncolumn STAMP -2 TIMESTAMP 8 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\nrowversion STAMP\n");
  run.Source({"1;x;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(
      run.source.LogLines("SQLPrepare"),
      ElementsAre("SQLPrepare INSERT INTO \"CLIENT\" (\"CODE\",\"NOM\") VALUES (?, ?) = 0"));
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(2));
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'"));
}

TEST(InsertStatement, BindsEachParameterByTheColumnsType) {
  struct Case {
    const char *column, *binding;
  };
  for (const Case& each :
       {Case{"C 1 CHAR 7 0 1", "1 io=1 ctype=1 sqltype=1 size=7 digits=0 buflen=500"},
        {"C 12 VARCHAR 30 0 1", "1 io=1 ctype=1 sqltype=12 size=30 digits=0 buflen=500"},
        {"C -1 TEXT 9999 0 1", "1 io=1 ctype=1 sqltype=-1 size=9999 digits=0 buflen=500"},
        {"C 4 INTEGER 10 0 1", "1 io=1 ctype=1 sqltype=4 size=10 digits=0 buflen=500"},
        {"C 5 SMALLINT 5 0 1", "1 io=1 ctype=1 sqltype=5 size=5 digits=0 buflen=500"},
        {"C 3 DECIMAL 12 3 1", "1 io=1 ctype=1 sqltype=3 size=12 digits=3 buflen=500"},
        {"C 8 DOUBLE 15 2 1", "1 io=1 ctype=1 sqltype=8 size=15 digits=2 buflen=500"},
        {"C 10 TIME 8 0 1", "1 io=1 ctype=1 sqltype=10 size=8 digits=0 buflen=500"},
        {"C 6 FLOAT 15 4 1", "1 io=1 ctype=8 sqltype=6 size=15 digits=4 buflen=0"},
        {"C 9 DATE 10 0 1", "1 io=1 ctype=9 sqltype=9 size=0 digits=0 buflen=0"},
        {"C 11 TIMESTAMP 23 3 1", "1 io=1 ctype=11 sqltype=11 size=0 digits=0 buflen=0"}}) {
    ImportRun run;
    run.Script(std::string("column ") + each.column + '\n');
    run.Source({""});
    EXPECT_EQ(run.Go(), 2) << each.column;
    EXPECT_THAT(run.source.LogLines("SQLBindParameter"),
                ElementsAre("SQLBindParameter " + std::string(each.binding) + " = 0"));
  }
}

TEST(InsertStatement, IsPreparedAndBoundOnceForAllLines) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.source.LogLines("SQLPrepare"), SizeIs(1));
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(2));
  EXPECT_THAT(run.Executed(), SizeIs(3));
}

TEST(InsertStatement, IsDroppedAtTheEndAndAfterAFailure) {
  for (const char* behaviour : {"", "on SQLPrepare 1 return -1 diag S1000 5 \"no\""}) {
    ImportRun run;
    run.Driver(behaviour);
    run.Source({"1;a"});
    run.Go();
    std::size_t allocated = 0;
    std::size_t dropped = 0;
    for (const std::string& line : run.source.LogLines()) {
      if (line.starts_with("SQLAllocStmt") && line.ends_with(" = 0")) ++allocated;
      if (line.starts_with("SQLFreeStmt DROP") && line.ends_with(" = 0")) ++dropped;
    }
    EXPECT_EQ(allocated, 3U) << "columns, row versions and the import itself";
    EXPECT_EQ(dropped, allocated) << behaviour;
  }
}

TEST(InsertStatement, IsNotPreparedWhenTheCatalogueFails) {
  for (const char* call : {"SQLColumns", "SQLSpecialColumns"}) {
    ImportRun run;
    run.Driver(std::string("on ") + call + " 1 return -1 diag S1000 42 \"no catalogue\"");
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 3) << call;
    ExpectNothingRead(run);
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 42, "no catalogue")));
    EXPECT_THAT(run.source.LogLines("SQLPrepare"), IsEmpty()) << call;
  }
}

TEST(InsertStatement, IsNotPreparedWithoutAStatement) {
  ImportRun run;
  run.Driver("on SQLAllocStmt 3 return -1 diag S1001 7 \"no memory\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  ExpectNothingRead(run);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 7, "no memory")));
  EXPECT_THAT(run.source.LogLines("SQLPrepare"), IsEmpty());
}

TEST(InsertStatement, IsReportedWhenTheDriverRefusesIt) {
  ImportRun run;
  run.Driver("on SQLPrepare 1 return -1 diag 42000 170 \"syntax\" diag 42000 171 \"here\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  ExpectNothingRead(run);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 170, "syntax"), ErrorLine(0, 171, "here")));
  EXPECT_THAT(run.source.LogLines("SQLBindParameter"), IsEmpty());
}

TEST(InsertStatement, IsUsedWhenItsPreparationHasOnlyInformation) {
  ImportRun run;
  run.Driver("on SQLPrepare 1 return 1 diag 01000 1 \"fine\"");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'"));
}

TEST(InsertStatement, EndsTheModeAtTheFirstBindingThatIsNotAPlainSuccess) {
  for (const char* code : {"-1", "1"}) {
    ImportRun run;
    run.Script(
        "column A 12 VARCHAR 30 0 1\ncolumn B 12 VARCHAR 30 0 1\ncolumn C 12 VARCHAR 30 0 1\n"
        "on SQLBindParameter 2 return " +
        std::string(code) + " diag S1000 9 \"no binding\"\n");
    run.Source({"1;a;b"});
    EXPECT_EQ(run.Go(), 3) << code;
    ExpectNothingRead(run);
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 9, "no binding")));
    EXPECT_THAT(run.source.LogLines("SQLBindParameter"), SizeIs(2)) << code;
  }
}

TEST(InsertStatement, ReadsNothingWhenTheLayoutIsNonsense) {
  ImportRun run;
  run.Columns({"5,x", "1"});
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  const auto report = run.component.host.lines;
  ASSERT_THAT(report, SizeIs(9));
  EXPECT_EQ(report[5].text,
            " -->   Erreur lors du traitement - N° 13 ,Incompatibilité de type : "
            "\"Colonnes\\1\" = \"5,x\"");
  EXPECT_EQ(report[5].kind, ReportKind::kError);
  EXPECT_EQ(report[6].text, " ----->    0 enreg(s) lu(s)");
  EXPECT_THAT(run.Executed(), IsEmpty());
}

TEST(InsertStatement, OpensNoTransaction) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 1 \"no\"");
  run.Set("Erreurs", "0");
  run.Go();
  EXPECT_THAT(run.source.LogLines("SQLTransact"), IsEmpty());
  // 102 is auto-commit.
  EXPECT_THAT(run.source.LogLines("SQLSetConnectOption"),
              Each(StartsWith("SQLSetConnectOption 103=")));
}

}  // namespace
}  // namespace imptable
