#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/ScriptedSession.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int16_t kNoSuchMode = 2;

/// A connected session whose next statement is refused with the given diagnostics.
class Refusal {
 public:
  explicit Refusal(const std::string& diagnostics)
      : session_("on SQLExecDirect 1 return -1 " + diagnostics), folder_(testing::TempDir()) {
    EXPECT_TRUE(session_.Connect());
    EXPECT_EQ(statement_.Allocate(odbc().connection), SQL_SUCCESS);
    const std::string text = "DELETE FROM T";
    EXPECT_EQ(SQLExecDirect(statement_.raw(), SqlText(text), SQL_NTS), SQL_ERROR);
  }

  /// "DupKey" 1 and this "CodErr".
  void IgnoreDuplicate(const std::string& code) {
    session_.run().duplicate_key = 1;
    session_.run().error_code = code;
  }

  void OpenErrorFile(std::int32_t line_number) {
    file_.emplace(RunFile::Create(session_.component.files, folder_.path() + "T.ERR"));
    odbc().error_file = &*file_;
    odbc().line_number = line_number;
  }
  std::string ErrorFile() const { return folder_.Read("T.ERR"); }

  /// @return whether the duplicate was ignored.
  bool Report(std::int16_t mode) {
    bool ignored = false;
    odbc().ReportOdbcError(odbc().connection, statement_.raw(), mode, ignored);
    return ignored;
  }

  ScriptedSession& session() { return session_; }
  OdbcSession& odbc() { return session_.odbc(); }
  std::vector<WrittenLine>& report() { return session_.component.host.lines; }

 private:
  ScriptedSession session_;
  TemporaryFolder folder_;
  std::optional<RunFile> file_;
  Statement statement_;
};

TEST(Diagnostics, AreShownInAMessageBoxOutsideARun) {
  Refusal refusal("diag 42000 208 \"no such table\"");
  EXPECT_FALSE(refusal.Report(kDialogMode));
  EXPECT_THAT(
      refusal.session().component.warnings.warnings(),
      ElementsAre(RecordingWarningBox::Warning{"( 208) no such table", "Importation Table"}));
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(Diagnostics, AreShownWithANegativeCodeWithoutALeadingBlank) {
  Refusal refusal("diag 42000 -204 \"undefined name\" diag 42000 0 \"zero\"");
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("(-204) undefined name", "( 0) zero"));
}

TEST(Diagnostics, AreShownWithTheGreatestAndTheLeastCode) {
  Refusal refusal("diag HY000 2147483647 most diag HY000 -2147483648 least");
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 2147483647) most", "(-2147483648) least"));
}

TEST(Diagnostics, AreShownToTheLast) {
  Refusal refusal("diag 23000 1 first diag 23000 2 second diag 01000 3 third");
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) first", "( 2) second", "( 3) third"));
}

TEST(Diagnostics, CountAsReportedEvenWhenThereIsNone) {
  Refusal refusal("diag 23000 1 first");
  refusal.Report(kDialogMode);
  refusal.odbc().error_reported = false;
  EXPECT_FALSE(refusal.Report(kDialogMode));
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) first"));
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(Diagnostics, KeepTheLongestTextThatFitsIn512Bytes) {
  const std::string longest(511, 'x');
  Refusal refusal("diag 23000 1 \"" + longest + "\" diag 23000 2 second");
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) " + longest, "( 2) second"));
}

TEST(Diagnostics, EndWithATextThatIsCut) {
  Refusal refusal("diag 23000 1 first diag 23000 2 \"" + std::string(600, 'x') +
                  "\" diag 23000 3 third");
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(),
              ElementsAre("( 1) first", "( 2) " + std::string(511, 'x')));
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(Diagnostics, GoToTheReportDuringARun) {
  Refusal refusal("diag 23000 1 first diag 23000 -2 second");
  refusal.session().ReportToTheRun();
  refusal.Report(kRunMode);
  EXPECT_THAT(refusal.report(),
              ElementsAre(WrittenLine{"( 1) first", ReportKind::kError, nullptr},
                          WrittenLine{"(-2) second", ReportKind::kError, nullptr}));
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
}

TEST(Diagnostics, GoToTheErrorFileWhileItIsOpen) {
  Refusal refusal("diag 23000 2627 \"duplicate key\" diag 01000 -1 second");
  refusal.session().ReportToTheRun();
  refusal.OpenErrorFile(17);
  refusal.Report(kRunMode);
  EXPECT_EQ(refusal.ErrorFile(),
            TextFile({"15/11/2006 08:30:00.... Ligne  17 ( 2627) duplicate key",
                      "15/11/2006 08:30:00.... Ligne  17 (-1) second"}));
  EXPECT_THAT(refusal.report(), IsEmpty());
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(Diagnostics, NameTheLineInEnglishInAnEnglishErrorFile) {
  Refusal refusal("diag 23000 1 first");
  refusal.session().component.module().language_offset = kEnglishOffset;
  refusal.OpenErrorFile(3);
  refusal.Report(kRunMode);
  EXPECT_EQ(refusal.ErrorFile(), TextFile({"15/11/2006 08:30:00.... Line  3 ( 1) first"}));
}

TEST(Diagnostics, GoToTheErrorFileInEveryImportModeAndToTheReportInAnyOther) {
  for (std::int16_t mode = 0; mode <= 5; ++mode) {
    Refusal refusal("diag 23000 1 first");
    refusal.session().ReportToTheRun();
    refusal.session().run().mode = mode;
    refusal.OpenErrorFile(1);
    refusal.Report(kRunMode);
    EXPECT_EQ(refusal.ErrorFile().empty(), mode == 5) << mode;
    EXPECT_EQ(refusal.report().empty(), mode != 5) << mode;
  }
}

TEST(Diagnostics, GoToTheMessageBoxOutsideARunEvenWithAnErrorFileOpen) {
  Refusal refusal("diag 23000 1 first");
  refusal.OpenErrorFile(1);
  refusal.Report(kDialogMode);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) first"));
  EXPECT_EQ(refusal.ErrorFile(), "");
}

TEST(Diagnostics, ShowNothingInAReportingModeThatIsNone) {
  Refusal refusal("diag 23000 1 first");
  refusal.session().ReportToTheRun();
  refusal.OpenErrorFile(1);
  EXPECT_FALSE(refusal.Report(kNoSuchMode));
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
  EXPECT_THAT(refusal.report(), IsEmpty());
  EXPECT_EQ(refusal.ErrorFile(), "");
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(IgnorableDuplicate, IsNeitherShownNorCountedNorReadPast) {
  Refusal refusal("diag 23000 2627 \"duplicate key\" diag 01000 3621 \"statement ended\"");
  refusal.IgnoreDuplicate("2627");
  EXPECT_TRUE(refusal.Report(kDialogMode));
  EXPECT_FALSE(refusal.odbc().error_reported);
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
  EXPECT_FALSE(refusal.Report(kDialogMode));
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 3621) statement ended"));
}

TEST(IgnorableDuplicate, LeavesAnErrorReportedBeforeItReported) {
  Refusal refusal("diag 23000 2627 \"duplicate key\"");
  refusal.IgnoreDuplicate("2627");
  refusal.odbc().error_reported = true;
  EXPECT_TRUE(refusal.Report(kDialogMode));
  EXPECT_TRUE(refusal.odbc().error_reported);
}

TEST(IgnorableDuplicate, IsFoundBehindDiagnosticsThatAreShown) {
  Refusal refusal("diag 42000 3621 \"statement ended\" diag 23000 2627 \"duplicate key\"");
  refusal.IgnoreDuplicate("2627");
  EXPECT_TRUE(refusal.Report(kDialogMode));
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 3621) statement ended"));
  EXPECT_FALSE(refusal.odbc().error_reported);
}

TEST(IgnorableDuplicate, IsTheCodeOfTheTaskAsANumber) {
  struct Case {
    const char* setting;
    const char* native;
    bool ignored;
  };
  for (const Case& each :
       {Case{"2627", "2627", true}, Case{" 2627 ", "2627", true}, Case{"-803", "-803", true},
        Case{"0", "0", true}, Case{"2627", "2628", false}, Case{"803", "-803", false},
        Case{"", "0", false}, Case{"duplicate", "0", false}}) {
    Refusal refusal("diag 23000 " + std::string(each.native) + " text");
    refusal.IgnoreDuplicate(each.setting);
    EXPECT_EQ(refusal.Report(kDialogMode), each.ignored) << each.setting << ' ' << each.native;
    EXPECT_EQ(refusal.odbc().error_reported, !each.ignored);
  }
}

TEST(IgnorableDuplicate, IsAnErrorLikeAnyOtherUnlessTheTaskIgnoresIt) {
  Refusal refusal("diag 23000 2627 \"duplicate key\"");
  refusal.IgnoreDuplicate("2627");
  refusal.session().run().duplicate_key = 0;
  EXPECT_FALSE(refusal.Report(kDialogMode));
  EXPECT_TRUE(refusal.odbc().error_reported);
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 2627) duplicate key"));
}

}  // namespace
}  // namespace imptable
