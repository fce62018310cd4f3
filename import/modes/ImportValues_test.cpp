#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kBadRecord =
    "15/11/2006 08:30:00.... Ligne  1 Formatage de l'enregistrement incorrect "
    "(présence de \"\";\"\" dans des champs Alpha)";

/// A table of one column of this type.
void OneColumn(ImportRun& run, const std::string& column) { run.Script("column " + column + '\n'); }

void UserSeparator(ImportRun& run, std::string_view separator) {
  run.component.registry.SetText({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal",
                                 separator);
}

/// What the driver is given for one line in a table of one column; "refused" for a parse failure.
std::vector<std::string> Given(ImportRun& run, const std::string& line) {
  run.Source({line});
  run.Go();
  return run.progress().lines[Outcome::kRejected] > 0 ? std::vector<std::string>{"refused"}
                                                      : run.Executed();
}

TEST(ImportValues, FeedTheColumnsByPosition) {
  ImportRun run;
  run.Source({"x;y"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='x' 2='y'"));
}

TEST(ImportValues, ComeFromFixedWidthColumns) {
  ImportRun run;
  run.Set("FormatFile", 0);
  run.Columns({"1,,3", "1,,2"});
  run.Source({"ABCDE", "é€𝄞fg", "A"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='ABC' 2='DE'", "1='é€𝄞' 2='fg'", "1='A' 2=NULL"));
}

TEST(ImportValues, AreSplitAtTheTasksDelimiter) {
  ImportRun run;
  run.Set("DelimiteurFile", "|");
  run.Source({"a;b|c", "d"});
  run.Go();
  EXPECT_THAT(run.Executed(), ElementsAre("1='a;b' 2='c'", "1='d' 2=NULL"));
}

TEST(ImportValues, FollowTheAssignmentOfEachColumn) {
  ImportRun run;
  run.Script(
      "column A 12 VARCHAR 30 0 1\ncolumn B 12 VARCHAR 30 0 1\ncolumn C 12 VARCHAR 30 0 1\n"
      "column D 12 VARCHAR 30 0 1\ncolumn E 12 VARCHAR 30 0 1\ncolumn F 12 VARCHAR 30 0 1\n");
  run.component.host.variables["SITE"] = "Lyon";
  run.Assign({"A,VARCHAR,(Col)2", "B,(Col)1", "C,Null", "D,@SITE", "E,fixed", "F,@NONE"});
  run.Source({"one;two"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='two' 2='one' 3=NULL 4='Lyon' 5='fixed' 6=NULL"));
  EXPECT_THAT(run.component.host.looked_up,
              ElementsAre("S1|SOFTWARE\\KALDO\\Scenarios\\S1\\Taches|SITE",
                          "S1|SOFTWARE\\KALDO\\Scenarios\\S1\\Taches|NONE"));
}

TEST(ImportValues, FollowTheOrderOfTheAssignmentsNotTheirNames) {
  ImportRun run;
  run.Set("Param", 1);
  run.component.registry.SetText(std::string(ImportRun::kTaskPath) + "\\Champs", "2", "(Col)2");
  run.component.registry.SetText(std::string(ImportRun::kTaskPath) + "\\Champs", "1", "(Col)1");
  run.Source({"one;two"});
  run.Go();
  EXPECT_THAT(run.Executed(), ElementsAre("1='two' 2='one'"));
}

TEST(ImportValues, ComeByPositionWhenTheTaskHasNoAssignments) {
  ImportRun run;
  run.Set("Param", 1);
  run.Source({"one;two"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='one' 2='two'"));
}

TEST(ImportValues, LeaveAssignmentsAloneThatTheTaskDoesNotUse) {
  ImportRun run;
  run.Assign({"(Col)2", "(Col)1"});
  run.Set("Param", 0);
  run.Source({"one;two"});
  run.Go();
  EXPECT_THAT(run.Executed(), ElementsAre("1='one' 2='two'"));
}

TEST(ImportValues, AreNullPastTheLastAssignmentAndTheLastField) {
  ImportRun run;
  run.Driver("column VILLE 12 VARCHAR 30 0 1");
  run.Assign({"(Col)2", "(Col)7"});
  run.Source({"one;two", "one"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='two' 2=NULL 3=NULL", "1=NULL 2=NULL 3=NULL"));
}

TEST(ImportValues, SkipAColumnWhoseAssignmentEndsInIgnore) {
  ImportRun run;
  run.Assign({"CODE,INTEGER,Ignore", "NOM,(Col)1"});
  run.Source({"one;two"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.source.LogLines("SQLPrepare"),
              ElementsAre("SQLPrepare INSERT INTO \"CLIENT\" (\"NOM\") VALUES (?) = 0"));
  EXPECT_THAT(run.Executed(), ElementsAre("1='one'"));
}

TEST(ImportValues, AreNullWhereTheFileSaysNull) {
  for (const int blanks_are_null : {0, 1}) {
    ImportRun run;
    run.Set("Null", blanks_are_null);
    run.Source({"Null;a", "1;Null", "Null;Null", "1;Null ", "1; Null", "1;null", "1;NullNull"});
    run.Go();
    EXPECT_THAT(run.Executed(),
                ElementsAre("1=NULL 2='a'", "1='1' 2=NULL", "1=NULL 2=NULL",
                            blanks_are_null == 1 ? "1='1' 2=NULL" : "1='1' 2='Null '",
                            "1='1' 2=' Null'", "1='1' 2='null'", "1='1' 2='NullNull'"));
  }
}

TEST(ImportValues, AreNullWhereTheFileSaysNullInADateOrANumberWithDecimals) {
  ImportRun run;
  run.Driver("column JOUR 9 DATE 10 0 1");
  run.Columns({"6,2", "1", "7,14,,,"});
  run.Source({"Null;a;20061115", "150;Null;Null"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1=NULL 2='a' 3={2006-11-15}", "1='1.50' 2=NULL 3=NULL"));
}

TEST(ImportValues, AreNullWhereAVariableSaysNull) {
  ImportRun run;
  run.component.host.variables["EMPTY"] = "Null";
  run.Assign({"(Col)1", "@EMPTY"});
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2=NULL"));
}

TEST(ImportValues, AreNullWhenEmpty) {
  ImportRun run;
  run.Source({";"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1=NULL 2=NULL"));
}

TEST(ImportValues, AreNullWhenBlankAndLoseTrailingBlanksOnlyWhenTheTaskSaysSo) {
  for (const bool blanks_are_null : {true, false}) {
    ImportRun run;
    run.Set("Null", blanks_are_null ? 1 : 0);
    run.Source({"    ; a  "});
    run.Go();
    EXPECT_THAT(run.Executed(),
                blanks_are_null ? ElementsAre("1=NULL 2=' a'") : ElementsAre("1='    ' 2=' a  '"));
  }
}

TEST(ImportValues, TreatConstantsAndVariablesAsBlankWithTheSameRule) {
  ImportRun run;
  run.Set("Null", 1);
  run.component.host.variables["V"] = "   ";
  run.Assign({"A, c  ", "B,@V"});
  run.Source({"one;two"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1=' c' 2=NULL"));
}

TEST(ImportValues, TakeTheLayoutOfTheFileColumnThatFeedsTheTableColumn) {
  ImportRun run;
  run.Columns({"7,7,,/,", "1"});
  run.Assign({"CODE,(Col)2", "NOM,(Col)1"});
  run.Source({"15/11/2006;15/11/2006"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='15/11/2006' 2='2006-11-15 00:00:00.000'"));
}

TEST(ImportValues, GiveConstantsAndVariablesNoLayout) {
  ImportRun run;
  run.component.host.variables["V"] = "12345";
  run.Columns({"7,7,,/,", "5,2"});
  run.Assign({"CODE,15/11/2006", "NOM,@V"});
  run.Source({"a;b"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='15/11/2006' 2='12345'"));
}

TEST(ImportValues, ReachDateColumnsInEachOfTheDatesForms) {
  struct Case {
    const char *column, *layout, *line, *expected;
  };
  for (const Case& each :
       {Case{"D 11 TIMESTAMP 23 3 1", "7,14,,,0", "20061115 08:30", "1={2006-11-15 08:30:00}"},
        {"D 9 DATE 10 0 1", "7,7,,/,1", "15/11/2006 08:30:59", "1={2006-11-15}"},
        {"D 12 VARCHAR 30 0 1", "7,7,,-,", "15-11-2006", "1='2006-11-15 00:00:00.000'"},
        {"D 11 TIMESTAMP 23 3 1", "7,2,,,", "150399", "1={2099-03-15 00:00:00}"},
        {"D 11 TIMESTAMP 23 3 1", "7,7,,/,", "31/13/2006", "1={2006-13-31 00:00:00}"},
        {"D 11 TIMESTAMP 23 3 1", "1", "2006-11-15 08:30:59.5", "1={2006-11-15 08:30:59.5}"},
        {"D 9 DATE 10 0 1", "1", "2006-11-15", "1={2006-11-15}"},
        {"D 9 DATE 10 0 1", "1", "15/11/2006", "refused"},
        {"D 6 FLOAT 15 0 1", "7,7,,/,", "15/11/2006", "refused"},
        {"D 9 DATE 10 0 1", "7,7,,/,", "15/11", "refused"},
        {"D 9 DATE 10 0 1", "7,7,,/,", "aa/11/2006", "refused"},
        {"D 12 VARCHAR 30 0 1", "7,7,,/,", "    ", "refused"}}) {
    ImportRun run;
    OneColumn(run, each.column);
    run.Columns({each.layout});
    EXPECT_THAT(Given(run, each.line), ElementsAre(each.expected)) << each.line;
  }
}

TEST(ImportValues, AreNullInColumnsOfEveryTypeWhenADateIsEmpty) {
  for (const char* type : {"9 DATE 10 0", "11 TIMESTAMP 23 3", "12 VARCHAR 30 0", "6 FLOAT 15 0"}) {
    ImportRun run;
    run.Script("column A 12 VARCHAR 30 0 1\ncolumn D " + std::string(type) + " 1\n");
    run.Set("Null", 1);
    run.Columns({"1", "7,7,,/,1"});
    run.Source({"a;", "b;   "});
    EXPECT_EQ(run.Go(), 2) << type;
    EXPECT_THAT(run.Executed(), ElementsAre("1='a' 2=NULL", "1='b' 2=NULL")) << type;
  }
}

TEST(ImportValues, ReachNumberColumnsAsDoublesInTheUsersNotation) {
  struct Case {
    const char *user, *sep_dec_layout, *line, *expected;
    std::int32_t explicit_separator;
  };
  for (const Case& each : {Case{".", "6", "123.45", "1=123.45", 1},
                           {",", "6", "123.45", "1=123.45", 1},
                           {",", "6", "123,45", "1=123.45", 1},
                           {".", "6,2", "12345", "1=123.45", 0},
                           {",", "5,2", "12345", "1=123.45", 0},
                           {".", "3,1", "12345", "1=1234.5", 0},
                           {".", "5", "12345", "1=12345", 0},
                           {".", "4,2", "12345", "1=12345", 0},
                           {".", "1,2", "12345", "1=12345", 0},
                           {",", "4", "123.45", "refused", 1},
                           {",", "1", "123.45", "refused", 1},
                           {",", "1", "123,45", "1=123.45", 1},
                           {".", "5,6", "12345", "refused", 0},
                           {".", "6", "12a", "refused", 1},
                           {".", "6", " 7 ", "1=7", 1},
                           {".", "6,2", "   ", "refused", 0}}) {
    ImportRun run;
    UserSeparator(run, each.user);
    OneColumn(run, "N 6 FLOAT 15 0 1");
    run.Set("SepDec", each.explicit_separator);
    run.Columns({each.sep_dec_layout});
    EXPECT_THAT(Given(run, each.line), ElementsAre(each.expected))
        << each.line << " as " << each.sep_dec_layout << " for a user of " << each.user;
  }
}

TEST(ImportValues, ReachTextParametersWithTheUsersSeparatorButSmallintWithAPoint) {
  struct Case {
    const char *column, *expected;
  };
  for (const Case& each : {Case{"N 5 SMALLINT 5 0 1", "1='123.45'"},
                           {"N 3 DECIMAL 10 2 1", "1='123,45'"},
                           {"N 8 DOUBLE 15 0 1", "1='123,45'"},
                           {"N 12 VARCHAR 30 0 1", "1='123,45'"}}) {
    for (const bool explicit_separator : {true, false}) {
      ImportRun run;
      UserSeparator(run, ",");
      OneColumn(run, each.column);
      run.Set("SepDec", explicit_separator ? 1 : 0);
      run.Columns({"6,2"});
      EXPECT_THAT(Given(run, explicit_separator ? "123.45" : "12345"), ElementsAre(each.expected))
          << each.column;
    }
  }
}

TEST(ImportValues, AreNullInANumberColumnWhenEmpty) {
  ImportRun run;
  run.Script("column A 12 VARCHAR 30 0 1\ncolumn N 6 FLOAT 15 0 1\n");
  run.Columns({"1", "6,2"});
  run.Source({"a;"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='a' 2=NULL"));
}

TEST(ImportValues, AreCutAtFiveHundredBytesAndNotWithinACharacter) {
  ImportRun run;
  run.Source({"1;" + std::string(499, 'x') + "é!"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='" + std::string(499, 'x') + "'"));
}

TEST(ImportValues, RefuseALineWithMoreFieldsThanColumns) {
  ImportRun run;
  run.Source({"1;a;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_THAT(run.Errors(), ElementsAre(kBadRecord));
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a;b"));
}

TEST(ImportValues, RefuseEveryLineWhenAConstantDoesNotFitItsColumn) {
  ImportRun run;
  OneColumn(run, "N 6 FLOAT 15 0 1");
  run.Assign({"N,twelve"});
  run.Source({"1", "2"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_THAT(run.Rejected(), ElementsAre("1", "2"));
}

TEST(ImportValues, OfASingleColumnMakeNoRecordWhenEmpty) {
  ImportRun run;
  OneColumn(run, "NOM 12 VARCHAR 30 0 1");
  run.Source({"a", "", "b"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='a'", "1='b'"));
  EXPECT_EQ(run.progress().read, 3);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
}

}  // namespace
}  // namespace imptable
