#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A connected session whose next statement is refused with the given diagnostics.
class Refusal {
 public:
  explicit Refusal(const std::string& diagnostics)
      : session_("on SQLExecDirect 1 return -1 " + diagnostics) {
    EXPECT_TRUE(session_.Connect());
    EXPECT_EQ(statement_.Allocate(odbc().connection), SQL_SUCCESS);
    const std::string text = "DELETE FROM T";
    EXPECT_EQ(SQLExecDirect(statement_.raw(), SqlText(text), SQL_NTS), SQL_ERROR);
  }

  void Report() { odbc().ReportOdbcError(statement_.raw()); }
  std::vector<Diagnostic> Take(std::optional<SQLINTEGER> last = std::nullopt) {
    return odbc().TakeDiagnostics(statement_.raw(), last);
  }

  ScriptedSession& session() { return session_; }
  OdbcSession& odbc() { return session_.odbc(); }
  std::vector<WrittenLine>& report() { return session_.component.host.lines; }

 private:
  ScriptedSession session_;
  Statement statement_;
};

TEST(Diagnostics, AreShownInAMessageBoxOutsideARun) {
  Refusal refusal("diag 42000 208 \"no such table\"");
  refusal.Report();
  EXPECT_THAT(
      refusal.session().component.warnings.warnings(),
      ElementsAre(RecordingWarningBox::Warning{"( 208) no such table", "Importation Table"}));
}

TEST(Diagnostics, AreShownWithANegativeCodeWithoutALeadingBlank) {
  Refusal refusal("diag 42000 -204 \"undefined name\" diag 42000 0 \"zero\"");
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("(-204) undefined name", "( 0) zero"));
}

TEST(Diagnostics, AreShownWithTheGreatestAndTheLeastCode) {
  Refusal refusal("diag HY000 2147483647 most diag HY000 -2147483648 least");
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 2147483647) most", "(-2147483648) least"));
}

TEST(Diagnostics, AreShownToTheLast) {
  Refusal refusal("diag 23000 1 first diag 23000 2 second diag 01000 3 third");
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) first", "( 2) second", "( 3) third"));
}

TEST(Diagnostics, KeepTheLongestTextThatFitsIn512Bytes) {
  const std::string longest(511, 'x');
  Refusal refusal("diag 23000 1 \"" + longest + "\" diag 23000 2 second");
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 1) " + longest, "( 2) second"));
}

TEST(Diagnostics, EndWithATextThatIsCut) {
  Refusal refusal("diag 23000 1 first diag 23000 2 \"" + std::string(600, 'x') +
                  "\" diag 23000 3 third");
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(),
              ElementsAre("( 1) first", "( 2) " + std::string(511, 'x')));
}

TEST(Diagnostics, GoToTheReportDuringARun) {
  Refusal refusal("diag 23000 1 first diag 23000 -2 second");
  refusal.session().ReportToTheRun();
  refusal.Report();
  EXPECT_THAT(refusal.report(),
              ElementsAre(WrittenLine{"( 1) first", ReportKind::kError, nullptr},
                          WrittenLine{"(-2) second", ReportKind::kError, nullptr}));
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
}

TEST(Diagnostics, MakeARunOneWithErrorsEvenWhenThereIsNone) {
  Refusal refusal("diag 23000 1 first");
  refusal.session().ReportToTheRun();
  refusal.Report();
  refusal.session().run().error_reported = false;
  refusal.Report();
  EXPECT_THAT(refusal.report(), SizeIs(1));
  EXPECT_TRUE(refusal.session().run().error_reported);
}

TEST(Diagnostics, AreGivenWithTheirStates) {
  Refusal refusal("diag 23505 7 first diag 01000 -8 second");
  const std::vector<Diagnostic> taken = refusal.Take();
  ASSERT_EQ(taken.size(), 2U);
  EXPECT_EQ(taken[0].state, "23505");
  EXPECT_EQ(taken[0].native_code, 7);
  EXPECT_EQ(taken[0].text, "first");
  EXPECT_EQ(taken[1].state, "01000");
  EXPECT_EQ(taken[1].native_code, -8);
  EXPECT_THAT(refusal.session().Boxes(), IsEmpty());
}

TEST(Diagnostics, AreLeftUnreadBehindTheCodeThatIsLookedFor) {
  Refusal refusal("diag 42000 1 first diag 23000 2627 duplicate diag 01000 3621 ended");
  EXPECT_EQ(refusal.Take(2627).size(), 2U);
  refusal.Report();
  EXPECT_THAT(refusal.session().Boxes(), ElementsAre("( 3621) ended"));
}

}  // namespace
}  // namespace imptable
