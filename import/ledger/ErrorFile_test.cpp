#include "import/ledger/ErrorFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/ScriptedSession.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Stage = RecordDiagnostic::Stage;

/// A connected session during a run, and an error file.
class OpenErrorFile {
 public:
  explicit OpenErrorFile(std::string_view script = {})
      : session(script), folder_(testing::TempDir()) {
    session.ReportToTheRun();
    EXPECT_TRUE(session.odbc().ConnectDataSource(session.source.name(), "sa", "top secret"));
    file.emplace(session.component.module(), folder_.path() + "T.ERR");
  }

  /// Lets the driver refuse a statement and reports its diagnostics to the listener.
  void Refuse() {
    Statement statement;
    ASSERT_EQ(statement.Allocate(session.odbc().connection), SQL_SUCCESS);
    const std::string text = "DELETE FROM T";
    EXPECT_EQ(SQLExecDirect(statement.raw(), SqlText(text), SQL_NTS), SQL_ERROR);
    session.odbc().ReportOdbcError(statement.raw());
  }

  std::string Content() const { return folder_.Read("T.ERR"); }

  ScriptedSession session;
  std::optional<ErrorFile> file;

 private:
  TemporaryFolder folder_;
};

TEST(ErrorFile, HasALineForEachThingThatTheDatabaseSaysOfARecord) {
  OpenErrorFile open;
  open.file->Write(
      17, {.stage = Stage::kExecution, .driver = {.native_code = 2627, .text = "duplicate key"}});
  open.file->Write(17,
                   {.stage = Stage::kExecution, .driver = {.native_code = -1, .text = "ended"}});
  EXPECT_EQ(open.Content(), TextFile({"15/11/2006 08:30:00.... Ligne  17 ( 2627) duplicate key",
                                      "15/11/2006 08:30:00.... Ligne  17 (-1) ended"}));
  EXPECT_TRUE(open.session.run().error_reported);
}

TEST(ErrorFile, HasNoLineWhereTheDatabaseSaysNothingAndStillMakesAnError) {
  OpenErrorFile open;
  open.file->Write(3, {.stage = Stage::kExecution});
  EXPECT_EQ(open.Content(), "");
  EXPECT_TRUE(open.session.run().error_reported);
}

TEST(ErrorFile, TellsWhatIsWrongWithAValueInTheLanguageOfTheRun) {
  struct Case {
    RecordDiagnostic diagnostic;
    const char* french;
    const char* english;
  };
  const std::vector<Case> cases{
      {{.complaint = Complaint::kTooLong, .column = "NOM", .is_key = true, .value = "abc"},
       "Clé \"NOM\" : \"abc\" est trop longue ; la ligne n'a pas été exécutée",
       "Key \"NOM\": \"abc\" is too long; the line was not executed"},
      {{.complaint = Complaint::kNoNumber, .column = "A", .is_key = true, .value = "1x"},
       "Clé \"A\" : \"1x\" n'est pas un nombre ; la ligne n'a pas été exécutée",
       "Key \"A\": \"1x\" is no number; the line was not executed"},
      {{.complaint = Complaint::kNoBit, .column = "A", .value = "2"},
       "Colonne \"A\" : \"2\" n'est ni 0 ni 1 ; la ligne n'a pas été exécutée",
       "Column \"A\": \"2\" is neither 0 nor 1; the line was not executed"},
      {{.complaint = Complaint::kNoDate, .column = "A", .value = "%1"},
       "Colonne \"A\" : \"%1\" n'est pas une date ; la ligne n'a pas été exécutée",
       "Column \"A\": \"%1\" is no date; the line was not executed"},
      {{.complaint = Complaint::kNoTime, .column = "A", .value = ""},
       "Colonne \"A\" : \"\" n'est pas une heure ; la ligne n'a pas été exécutée",
       "Column \"A\": \"\" is no time; the line was not executed"},
      {{.complaint = Complaint::kNoBytes, .column = "A", .value = "zz"},
       "Colonne \"A\" : \"zz\" n'est pas une suite d'octets en hexadécimal ; la ligne n'a pas été "
       "exécutée",
       "Column \"A\": \"zz\" is no string of bytes in hexadecimal; the line was not executed"},
      {{.complaint = Complaint::kNoWholeBits, .column = "A", .value = "1.5"},
       "Colonne \"A\" : \"1.5\" n'est pas un nombre entier de bits ; la ligne n'a pas été exécutée",
       "Column \"A\": \"1.5\" is no whole number of bits; the line was not executed"},
      {{.complaint = Complaint::kHoldsNul},
       "La ligne contient un caractère nul, qui termine un texte pour le pilote ; elle n'a pas été "
       "exécutée",
       "The line holds a NUL, at which the driver ends a text; it was not executed"},
      {{.complaint = Complaint::kBadRecord},
       "Formatage de l'enregistrement incorrect (présence de \"\";\"\" dans des champs Alpha)",
       "Incorrect record format (presence of \"\";\"\" in text fields)"}};
  for (const Case& each : cases) {
    OpenErrorFile open;
    open.session.run().delimiter = ";";
    open.file->Write(1, each.diagnostic);
    open.session.component.module().language_offset = kEnglishOffset;
    open.file->Write(2, each.diagnostic);
    EXPECT_EQ(open.Content(),
              TextFile({"15/11/2006 08:30:00.... Ligne  1 " + std::string(each.french),
                        "15/11/2006 08:30:00.... Line  2 " + std::string(each.english)}));
  }
}

TEST(ErrorFile, TakesFailuresOfTheDataSourceWhileItListens) {
  OpenErrorFile open("on SQLExecDirect return -1 diag 42000 1 \"top secret has no rights\"");
  open.session.run().line_number = 3;
  FailureListener* const before = open.session.odbc().listener;
  open.session.odbc().listener = &*open.file;
  open.Refuse();
  EXPECT_EQ(open.Content(),
            TextFile({"15/11/2006 08:30:00.... Ligne  3 ( 1) ****** has no rights"}));
  EXPECT_THAT(open.session.component.host.lines, IsEmpty());
  EXPECT_TRUE(open.session.run().error_reported);
  open.session.odbc().listener = before;
  open.Refuse();
  EXPECT_THAT(open.session.component.host.Texts(), ElementsAre("( 1) ****** has no rights"));
}

TEST(ErrorFile, LeavesAFailedStepOfTheConnectionToTheReport) {
  OpenErrorFile open;
  open.session.odbc().listener = &*open.file;
  EXPECT_FALSE(open.session.odbc().CheckOdbcReturn(SQL_ERROR, Message::kQuit));
  EXPECT_EQ(open.Content(), "");
  EXPECT_THAT(open.session.component.host.Texts(), ElementsAre("&Quitter"));
}

}  // namespace
}  // namespace imptable
