#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kSelective = " -->   Suppression Sélective des données";
constexpr const char* kFault = " -->   Erreur lors de la suppression sélective - N° ";
constexpr const char* kFirst = "DELETE FROM CLIENT WHERE (CODE BETWEEN 1 AND 9)";
constexpr const char* kSecond = "DELETE FROM CLIENT WHERE (NOM BETWEEN 'A' AND 'M')";
constexpr const char* kTwoSections = "[Table01]\n01=CODE,1,9\n[Table02]\n01=NOM,A,M\n";

/// A run that deletes and then imports one line by UPDATE.
class DeletingRun : public KeyedRun {
 public:
  explicit DeletingRun(std::int32_t deletion, std::string_view selection = {})
      : KeyedRun(kByUpdate) {
    Set("Suppression", deletion);
    Source({"1;a"});
    if (!selection.empty()) folder.Write("CLIENTS.SUP", selection);
  }

  /// The report's lines of the deletion, whether or not the import follows.
  KindLines DeletionLines() {
    KindLines lines = ModeLines();
    for (std::size_t n = 0; n < lines.size(); ++n) {
      if (lines[n].first == " -->   Mode UPDATE") lines.resize(n);
    }
    return lines;
  }

  void ExpectNoImport() {
    EXPECT_EQ(Go(), 3);
    EXPECT_TRUE(component.module().run.pre_deletion_failed);
    EXPECT_TRUE(component.module().run.error_reported);
    EXPECT_EQ(OpenStatements(), 0);
    EXPECT_THAT(Executed(), IsEmpty());
    EXPECT_THAT(Trace(), ElementsAre("<none>"));
  }

  void ExpectImport() {
    EXPECT_EQ(Go(), 3);
    EXPECT_FALSE(component.module().run.pre_deletion_failed);
    EXPECT_TRUE(component.module().run.error_reported);
    EXPECT_EQ(OpenStatements(), 0);
    EXPECT_THAT(Executed(), SizeIs(1));
    EXPECT_THAT(Trace(), ElementsAre(Done(1)));
  }
};

KeyedRun::KindLines Query(const std::string& text) {
  return {Information(kSelective), Information(" ---->   Exécution de la requête : " + text)};
}

TEST(DeletionFailures, ByTheDriverSkipTheImport) {
  struct Case {
    const char* failure;
    bool query;
  };
  // The import is prepared before, with statements, columns and fetches of its own.
  for (const Case& each : {Case{"on SQLAllocStmt 4 return -1 diag S1000 7 \"no\"", false},
                           {"on SQLColumns 2 return -1 diag S1000 7 \"no\"", false},
                           {"on SQLBindCol 8 return -1 diag S1000 7 \"no\"", false},
                           {"on SQLFetch 5 return -1 diag S1000 7 \"no\"", false},
                           {"on SQLFetch 6 return 1 diag 01004 7 \"no\"", false},
                           {"on SQLAllocStmt 5 return -1 diag S1000 7 \"no\"", false},
                           {"on SQLExecDirect 1 return -1 diag S1000 7 \"no\"", true},
                           {"on SQLExecDirect 1 return 1 diag 01000 7 \"no\"", true},
                           {"on SQLRowCount 1 return -1 diag S1000 7 \"no\"", true},
                           {"on SQLRowCount 1 return 1 diag 01000 7 \"no\"", true}}) {
    SCOPED_TRACE(each.failure);
    DeletingRun run(2, kTwoSections);
    run.Driver(each.failure);
    run.ExpectNoImport();
    KeyedRun::KindLines expected = Query(kFirst);
    if (!each.query) expected.pop_back();
    expected.push_back(Error("( 7) no"));
    EXPECT_EQ(run.DeletionLines(), expected);
    EXPECT_THAT(run.Direct(), SizeIs(each.query ? 1 : 0)) << "later sections are not run";
  }
}

TEST(DeletionFailures, LetColumnsBeReadWithInformation) {
  DeletingRun run(2, kTwoSections);
  run.Driver("on SQLColumns 2 return 1 diag 01000 7 \"info\"");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Direct(), ElementsAre(kFirst, kSecond));
}

TEST(DeletionFailures, ShowEveryDiagnostic) {
  DeletingRun run(2, kTwoSections);
  run.Driver("on SQLExecDirect 1 return -1 diag 23000 -7 \"first\" diag 01000 8 \"second\"");
  run.ExpectNoImport();
  KeyedRun::KindLines expected = Query(kFirst);
  expected.push_back(Error("(-7) first"));
  expected.push_back(Error("( 8) second"));
  EXPECT_EQ(run.DeletionLines(), expected);
}

TEST(DeletionFailures, InALaterSectionLeaveTheEarlierDeletionDone) {
  DeletingRun run(2, kTwoSections);
  run.Driver("on SQLExecDirect 2 return -1 diag 23000 7 \"no\"");
  run.ExpectNoImport();
  EXPECT_THAT(run.Direct(), ElementsAre(kFirst, kSecond));
  EXPECT_THAT(run.source.LogLines("SQLTransact"), IsEmpty());
  EXPECT_EQ(run.DeletionLines()[2], Information(" ---->    1 Enregistrement(s) supprimé(s)"));
}

TEST(DeletionFailures, ByAColumnThatTheTableHasNotSkipTheImport) {
  for (const char* column : {"code", "NONE", "", " CODE ", "CODE "}) {
    SCOPED_TRACE(column);
    DeletingRun run(2, std::string("[Table01]\n01=CODE,1,9\n[Table02]\n01=NOM,A,M\n02=\"") +
                           column + ",1,9\"\n[Table03]\n01=CODE,1,9\n");
    run.ExpectNoImport();
    EXPECT_THAT(run.Direct(), ElementsAre(kFirst)) << "neither its section nor later ones";
    EXPECT_EQ(run.DeletionLines().back(),
              Information(" -->   Colonne non définie dans la base : " + std::string(column) +
                          " , Abandon du traitement"));
    EXPECT_THAT(run.DeletionLines(), SizeIs(4));
  }
}

TEST(DeletionFailures, AreNotCausedByBlanksAroundATablesColumnName) {
  DeletingRun run(2, "[Table01]\n01=CODE,1,9\n");
  run.Table("column \" CODE \" 4 INTEGER 10 0 0\ncolumn CODE 12 VARCHAR 9 0 1\n");
  run.Go();
  EXPECT_THAT(run.Direct(), ElementsAre(kFirst)) << "the first column of the name counts";
}

TEST(DeletionFailures, DoNotHappenToATableThatIsUnknownToTheImport) {
  DeletingRun run(2, kTwoSections);
  run.Table("table OTHER\ncolumn CODE 4 INTEGER 10 0 0\n");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.DeletionLines(), IsEmpty());
  EXPECT_THAT(run.Direct(), IsEmpty());
}

TEST(DeletionFailures, ByAValueWithoutItsCommasLetTheImportRun) {
  for (const char* value : {"CODE", "CODE,1", "CODE;1;9", "NONE", "no commas at all"}) {
    SCOPED_TRACE(value);
    DeletingRun run(2, std::string("[Table01]\n01=CODE,1,9\n[Table02]\n01=") + value +
                           "\n[Table03]\n01=CODE,1,9\n");
    run.ExpectImport();
    EXPECT_THAT(run.Direct(), ElementsAre(kFirst)) << "the fault ends the deletion";
    EXPECT_EQ(run.DeletionLines().back(), Error(kFault + std::string("5")));
  }
}

TEST(DeletionFailures, ByACommaThatIsCutOffLetTheImportRun) {
  DeletingRun run(2, "[Table01]\n01=CODE," + std::string(249, '1') + ",9\n");
  run.ExpectImport();
  EXPECT_EQ(run.DeletionLines().back(), Error(kFault + std::string("5")));
}

TEST(DeletionFailures, ByASelectionFileThatCannotBeReadLetTheImportRun) {
  struct Case {
    FileOperation operation;
    std::errc error;
    const char* number;
  };
  for (const Case& each : {Case{FileOperation::kOpenRead, std::errc::permission_denied, "70"},
                           {FileOperation::kOpenRead, std::errc::io_error, "57"},
                           {FileOperation::kRead, std::errc::io_error, "57"}}) {
    DeletingRun run(2, kTwoSections);
    // The data file comes before the selection: it is opened, and read at both ends.
    const int nth = each.operation == FileOperation::kOpenRead ? 4 : 3;
    run.component.files.Fail(each.operation, nth, std::make_error_code(each.error));
    run.ExpectImport();
    EXPECT_THAT(run.Direct(), IsEmpty());
    EXPECT_EQ(run.DeletionLines(), (KeyedRun::KindLines{Information(kSelective),
                                                        Error(std::string(kFault) + each.number)}));
  }
}

TEST(DeletionFailures, ByAConditionThatCannotBeReadDeleteNothingWithoutIt) {
  // The data file is opened three times first. Then the selection is opened once to read it as a
  // whole, and once for each key.
  DeletingRun run(2, "[Table01]\n01=CODE,1,9\n02=NOM,A,M\n");
  run.component.files.Fail(FileOperation::kOpenRead, 6, std::make_error_code(std::errc::io_error));
  run.ExpectImport();
  EXPECT_THAT(run.Direct(), IsEmpty());
  EXPECT_EQ(run.DeletionLines(),
            (KeyedRun::KindLines{Information(kSelective), Error(std::string(kFault) + "57")}));
  EXPECT_EQ(run.component.module().run.fault->detail(), run.folder.path() + "CLIENTS.SUP");
}

TEST(DeletionFailures, ByADirectoryInPlaceOfTheSelectionFileLetTheImportRun) {
  DeletingRun run(2);
  std::filesystem::create_directory(run.folder.path() + "CLIENTS.SUP");
  run.ExpectImport();
  EXPECT_EQ(run.DeletionLines().back(), Error(kFault + std::string("75")));
}

TEST(DeletionFailures, AreReportedInEnglish) {
  DeletingRun run(2, "[Table01]\n01=CODE\n");
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Go();
  EXPECT_EQ(run.ModeLines()[1], Error(" -->   Error during selective delete - N° 5"));
}

TEST(DeletionFailures, ByAFaultOfTheGlobalDeletionLetTheImportRun) {
  DeletingRun run(1);
  // The deletion yields once it has succeeded.
  bool thrown = false;
  for (int yield = 1; yield < 50; ++yield) {
    run.component.message_loop.AtYield(yield, [&] {
      if (thrown || run.source.LogLines("SQLExecDirect").empty()) return;
      thrown = true;
      throw RuntimeFault(FaultNumber::kOverflow);
    });
  }
  run.ExpectImport();
  EXPECT_EQ(
      run.DeletionLines(),
      (KeyedRun::KindLines{Information(" -->   Suppression Globale des données"),
                           Error(" -->   Erreur lors de la suppression de la Table - N° 6")}));
  EXPECT_THAT(run.source.LogLines("SQLExecDirect"), SizeIs(1));
}

TEST(DeletionFailures, DoNotHappenInAResume) {
  for (const std::int32_t deletion : {1, 2}) {
    DeletingRun run(deletion, kTwoSections);
    run.folder.Write("CLIENTS.TRC", "00000001100000001\n");
    run.folder.Write("CLIENTS.LER", "1;a\n");
    EXPECT_EQ(run.Go(2), 2);
    EXPECT_THAT(run.Direct(), IsEmpty());
    EXPECT_THAT(run.Executed(), SizeIs(1));
  }
}

}  // namespace
}  // namespace imptable
