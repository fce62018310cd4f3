#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kGlobal = " -->   Suppression Globale des données";
constexpr const char* kSelective = " -->   Suppression Sélective des données";

/// A run of a mode without an import, so that all lines of the mode are the deletion's.
class Deleting : public KeyedRun {
 public:
  explicit Deleting(std::int32_t deletion, std::string_view selection = {}) : KeyedRun(2) {
    Table(
        "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n"
        "column CODE_SITE 5 SMALLINT 5 0 1\ncolumn DATE_CDE 9 DATE 10 0 1\n");
    Set("Suppression", deletion);
    Source({"1;a"});
    if (!selection.empty()) folder.Write("CLIENTS.SUP", selection);
  }

  bool failed() { return component.module().run.pre_deletion_failed; }
};

/// Lines of the deletion by one statement.
KeyedRun::KindLines OneStatement(const std::string& text, const std::string& outcome) {
  return {Information(kSelective), Information(" ---->   Exécution de la requête : " + text),
          Information(outcome)};
}

TEST(GlobalDeletion, TruncatesTheTableAndReportsNoCount) {
  Deleting run(1);
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(), ElementsAre("TRUNCATE TABLE CLIENT"));
  EXPECT_EQ(run.ModeLines(), (KeyedRun::KindLines{Information(kGlobal)}));
  EXPECT_THAT(run.source.LogLines("SQLRowCount"), IsEmpty());
  EXPECT_THAT(run.source.LogLines("SQLFreeStmt"), ElementsAre("SQLFreeStmt DROP = 0"));
}

TEST(GlobalDeletion, NamesTheOwnerInQuotes) {
  Deleting run(1);
  run.Driver("info 29 \"`\"");
  run.Set("Owner", "dbo");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(), ElementsAre("TRUNCATE TABLE `dbo`.`CLIENT`"));
}

TEST(GlobalDeletion, TakesAnythingButSuccessForAFailureAndImportsNothing) {
  for (const char* code : {"1", "-1", "100"}) {
    Deleting run(1);
    run.Set("Mode", kByUpdate);
    run.Driver(std::string("on SQLExecDirect return ") + code + " diag 01000 5 \"info\"");
    EXPECT_EQ(run.Go(), 3) << code;
    KeyedRun::KindLines expected{Information(kGlobal)};
    if (*code != '1' || code[1] == '\0') expected.push_back(Error("( 5) info"));
    EXPECT_EQ(run.ModeLines(), expected) << code;
    EXPECT_TRUE(run.failed()) << code;
    EXPECT_TRUE(run.component.module().run.error_reported);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_EQ(run.OpenStatements(), 0);
  }
}

TEST(GlobalDeletion, FailsWithoutAStatement) {
  Deleting run(1);
  run.Driver("on SQLAllocStmt 4 return -1 diag S1000 7 \"no\"");  // the import has three before
  run.Set("Mode", kByUpdate);
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.ModeLines(), (KeyedRun::KindLines{Information(kGlobal), Error("( 7) no")}));
  EXPECT_TRUE(run.failed());
  EXPECT_THAT(run.Direct(), IsEmpty());
}

TEST(GlobalDeletion, YieldsWhenItSucceedsAndNotWhenItFails) {
  const auto yields = [](const char* behaviour) {
    Deleting run(1);
    run.Driver(behaviour);
    run.Go();
    return run.component.message_loop.yields();
  };
  EXPECT_EQ(yields(""), yields("on SQLExecDirect return -1 diag S1000 7 \"no\"") + 1);
}

TEST(GlobalDeletion, IsReportedInEnglish) {
  Deleting run(1);
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Go();
  EXPECT_EQ(run.ModeLines(), (KeyedRun::KindLines{Information(" -->   Delete all data")}));
}

TEST(Deletions, ShowTheHourglassInThePointerModeAndResetIt) {
  for (const char* behaviour : {"", "on SQLExecDirect return -1 diag S1000 7 \"no\""}) {
    for (const std::int32_t deletion : {1, 2}) {
      Deleting run(deletion, "[Table01]\n01=CODE,1,9\n");
      run.Driver(behaviour);
      run.component.module().pointer_mode = "P";
      run.Go();
      EXPECT_EQ(run.component.pointer.shown, 1) << deletion;
      EXPECT_EQ(run.component.pointer.reset, 1) << deletion;
    }
  }
}

TEST(SelectiveDeletion, RunsOneStatementForEachSection) {
  Deleting run(2,
               "[Table01]\n01=CODE_SITE,10,20\n02=NOM,A,M\n"
               "[Table03]\n01=DATE_CDE,2006-01-01,2006-06-30\n");
  run.Driver("rowcount at 1 = 3");
  run.Driver("rowcount at 2 = 12");
  EXPECT_EQ(run.Go(), 2);
  const std::string first =
      "DELETE FROM CLIENT WHERE (CODE_SITE BETWEEN 10 AND 20) AND (NOM BETWEEN 'A' AND 'M')";
  const std::string second =
      "DELETE FROM CLIENT WHERE (DATE_CDE BETWEEN '2006-01-01' AND '2006-06-30')";
  EXPECT_THAT(run.Direct(), ElementsAre(first, second));
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{Information(kSelective),
                                 Information(" ---->   Exécution de la requête : " + first),
                                 Information(" ---->    3 Enregistrement(s) supprimé(s)"),
                                 Information(" ---->   Exécution de la requête : " + second),
                                 Information(" ---->    12 Enregistrement(s) supprimé(s)")}));
  EXPECT_FALSE(run.failed());
}

TEST(SelectiveDeletion, IsReportedInEnglish) {
  Deleting run(2, "[Table01]\n01=CODE,1,9\n[Table02]\n01=CODE,1,9\n[Table03]\n01=NONE,1,9\n");
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Driver("rowcount at 2 = -1");
  run.Go();
  const std::string text = " ---->   Run query: DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 9)";
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{
                Information(" -->   Delete selected data"), Information(text),
                Information(" ---->    1 Record(s) deleted"), Information(text),
                Information(" ---->   No records deleted"),
                Information(" -->   Column not defined in database: NONE , Abandoning process")}));
}

TEST(SelectiveDeletion, TellsNoneDeletedFromAnUnknownCount) {
  const std::string text = "DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 9)";
  Deleting none(2, "[Table01]\n01=CODE,1,9\n");
  none.Driver("rowcount 0");
  EXPECT_EQ(none.Go(), 2);
  EXPECT_EQ(none.ModeLines(), OneStatement(text, " ---->    0 Enregistrement(s) supprimé(s)"));
  Deleting unknown(2, "[Table01]\n01=CODE,1,9\n");
  unknown.Driver("rowcount -1");
  EXPECT_EQ(unknown.Go(), 2);
  EXPECT_EQ(unknown.ModeLines(),
            OneStatement(text, " ---->   Aucun(s) Enregistrement(s) supprimé(s)"));
}

TEST(SelectiveDeletion, QuotesTheNamesAndNamesTheOwner) {
  Deleting run(2, "[Table01]\n01=CODE,1,9\n");
  run.Driver("info 29 \"`\"");
  run.Set("Owner", "dbo");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(),
              ElementsAre("DELETE FROM `dbo`.`CLIENT` WHERE (`CODE` BETWEEN 1 AND 9)"));
}

TEST(SelectiveDeletion, PutsBoundsOfTextsAndTimesBetweenQuotes) {
  struct Case {
    int type;
    bool quoted;
  };
  for (const Case& each : {Case{1, true},
                           {12, true},
                           {9, true},
                           {10, true},
                           {11, true},
                           {-1, false},
                           {2, false},
                           {3, false},
                           {4, false},
                           {5, false},
                           {6, false},
                           {7, false},
                           {8, false},
                           {-5, false},
                           {-7, false},
                           {-8, false},
                           {-9, false},
                           {91, false},
                           {93, false}}) {
    Deleting run(2, "[Table01]\n01=C,1,9\n");
    run.Table("column C " + std::to_string(each.type) + " T 10 0 1\n");
    EXPECT_EQ(run.Go(), 2) << each.type;
    EXPECT_THAT(run.Direct(),
                ElementsAre(each.quoted ? "DELETE FROM CLIENT WHERE (C BETWEEN '1' AND '9')"
                                        : "DELETE FROM CLIENT WHERE (C BETWEEN 1 AND 9)"))
        << each.type;
  }
}

TEST(SelectiveDeletion, ReadsTheTwentySectionsAndTheirTenKeysWithTheirGaps) {
  struct Case {
    const char *section, *key;
    bool run;
  };
  for (const Case& each : {Case{"Table01", "01", true},
                           {"Table02", "05", true},
                           {"Table20", "10", true},
                           {"TABLE20", "10", true},
                           {"Table21", "01", false},
                           {"Table00", "01", false},
                           {"Table1", "01", false},
                           {"Table01", "11", false},
                           {"Table01", "00", false},
                           {"Table01", "1", false}}) {
    SCOPED_TRACE(std::string(each.section) + "/" + each.key);
    Deleting run(2, std::string("[") + each.section + "]\n" + each.key + "=CODE,1,9\n");
    EXPECT_EQ(run.Go(), 2);
    EXPECT_THAT(run.Direct(), SizeIs(each.run ? 1 : 0));
    EXPECT_THAT(run.ModeLines(), SizeIs(each.run ? 3 : 1));
  }
}

TEST(SelectiveDeletion, TakesSectionsAndKeysByTheirNumbersWhateverTheirOrderInTheFile) {
  Deleting run(2, "[Table02]\n10=CODE,3,4\n02=NOM,A,B\n[Table01]\n01=CODE,1,2\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(
      run.Direct(),
      ElementsAre("DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 2)",
                  "DELETE FROM CLIENT WHERE (NOM BETWEEN 'A' AND 'B') AND (CODE BETWEEN 3 AND 4)"));
}

TEST(SelectiveDeletion, SkipsValuesThatAreEmptyOrBeginWithNon) {
  Deleting run(2,
               "[Table01]\n01=Non\n02=\n03=Nonce,1,2\n04=\"\"\n"
               "[Table02]\n01=Non\n02=CODE,1,9\n03=NON,1,2\n");
  run.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn Nonce 4 INTEGER 10 0 0\ncolumn NON 4 INTEGER 9 0 0\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(), ElementsAre("DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 9) AND "
                                        "(NON BETWEEN 1 AND 2)"))
      << "in this case alone";
  EXPECT_THAT(run.ModeLines(), SizeIs(3)) << "no line for the section without conditions";
}

TEST(SelectiveDeletion, LeavesEverythingForAFileWithoutValues) {
  Deleting run(2, "nothing\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.ModeLines(), (KeyedRun::KindLines{Information(kSelective)}));
  EXPECT_THAT(run.Direct(), IsEmpty());
}

TEST(SelectiveDeletion, CopiesTheBoundsAsTheyStand) {
  struct Case {
    const char *value, *condition;
  };
  for (const Case& each : {Case{"NOM, A , M z", "(NOM BETWEEN ' A ' AND ' M z')"},
                           {"NOM,O'Hara,\"x\"", "(NOM BETWEEN 'O'Hara' AND '\"x\"')"},
                           {"NOM,A,M,Z", "(NOM BETWEEN 'A' AND 'M,Z')"},
                           {"NOM,,", "(NOM BETWEEN '' AND '')"},
                           {"CODE,,", "(CODE BETWEEN  AND )"},
                           {"'CODE,1,9'", "(CODE BETWEEN 1 AND 9)"},
                           {"NOM,'A','M'", "(NOM BETWEEN ''A'' AND ''M'')"}}) {
    Deleting run(2, std::string("[Table01]\n01=") + each.value + "\n");
    EXPECT_EQ(run.Go(), 2) << each.value;
    EXPECT_THAT(run.Direct(),
                ElementsAre("DELETE FROM CLIENT WHERE " + std::string(each.condition)))
        << each.value;
  }
}

TEST(SelectiveDeletion, TakesNoMoreOfAValueThan254Characters) {
  struct Case {
    std::string long_bound, taken;
  };
  // A value has at most 254 characters: "NOM,A," and 248 of the bound.
  for (const Case& each : {Case{std::string(248, 'x'), std::string(248, 'x')},
                           {std::string(249, 'x'), std::string(248, 'x')},
                           {std::string(247, 'x') + "éé", std::string(247, 'x') + "é"}}) {
    Deleting run(2, "[Table01]\n01=NOM,A," + each.long_bound + "\n");
    EXPECT_EQ(run.Go(), 2);
    EXPECT_THAT(run.Direct(),
                ElementsAre("DELETE FROM CLIENT WHERE (NOM BETWEEN 'A' AND '" + each.taken + "')"));
  }
}

TEST(SelectiveDeletion, ReadsItsFileByTheAliasWithoutTrailingBlanksInAnyCase) {
  Deleting run(2);
  run.Set("Alias", "Clients  ");
  run.folder.Write("clients.sup", "[Table01]\r\n01=CODE,1,9\r\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(), ElementsAre("DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 9)"));
}

TEST(SelectiveDeletion, DropsItsStatementsAndYieldsAfterEach) {
  const auto yields = [](const char* selection, std::size_t statements) {
    Deleting run(2, selection);
    run.Go();
    EXPECT_THAT(run.source.LogLines("SQLAllocStmt"), SizeIs(statements + 1));
    EXPECT_THAT(run.source.LogLines("SQLFreeStmt"), SizeIs(statements + 1));
    return run.component.message_loop.yields();
  };
  const int one = yields("[Table01]\n01=CODE,1,9\n", 1);
  EXPECT_EQ(yields("[Table01]\n01=CODE,1,9\n[Table02]\n01=CODE,1,9\n", 2), one + 1);
}

}  // namespace
}  // namespace imptable
