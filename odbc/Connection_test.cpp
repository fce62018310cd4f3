#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kRefusal =
    "on SQLDriverConnect return -1 diag 28000 18456 \"login failed\"\n";

TEST(Connection, AnnouncesItselfOnlyOnceItIsMade) {
  ScriptedSession session;
  EXPECT_FALSE(session.odbc().connected);
  EXPECT_TRUE(session.Connect());
  EXPECT_TRUE(session.odbc().connected);
  EXPECT_NE(session.odbc().environment, nullptr);
  EXPECT_NE(session.odbc().connection, nullptr);
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, IsNotTriedWithoutADataSource) {
  ScriptedSession session;
  EXPECT_FALSE(session.odbc().ConnectDataSource("", "u", "secret"));
  EXPECT_THAT(session.Boxes(), ElementsAre("Sélectionner une Source de Données"));
  EXPECT_THAT(session.source.LogLines(), IsEmpty());
  EXPECT_EQ(session.odbc().environment, nullptr);
}

TEST(Connection, HandsSourceUserAndPasswordToTheDriver) {
  struct Case {
    const char* user;
    const char* password;
    const char* expected;
  };
  for (const Case& each : {Case{"", "", ""}, Case{"u", "p", ";UID=u;PWD=p"},
                           Case{"u", "", ";UID=u;PWD=;"}, Case{"", "p", ";PWD=p"}}) {
    ScriptedSession session;
    const std::string& name = session.source.name();
    EXPECT_TRUE(session.odbc().ConnectDataSource(name, each.user, each.password));
    EXPECT_THAT(session.source.LogLines("SQLDriverConnect"),
                ElementsAre("SQLDriverConnect DSN=" + name + each.expected + " = 0"));
  }
}

TEST(Connection, LeavesUserAndPasswordToTheDataSourceWhenTheTaskHasNeither) {
  ScriptedSession session;
  EXPECT_TRUE(session.odbc().ConnectDataSource(session.source.name(), "", ""));
  EXPECT_THAT(session.source.LogLines("SQLDriverConnect"),
              ElementsAre("SQLDriverConnect DSN=" + session.source.name() + " = 0"));
}

TEST(Connection, IsLimitedInTimeInRunsAsInDialogs) {
  for (const bool in_a_run : {false, true}) {
    ScriptedSession session;
    if (in_a_run) session.ReportToTheRun();
    EXPECT_TRUE(session.Connect());
    EXPECT_THAT(session.source.LogLines("SQLSetConnectOption"),
                Contains("SQLSetConnectOption 103=15 = 0"));
  }
}

TEST(Connection, IsMadeByADriverThatCannotLimitItsTime) {
  ScriptedSession session("on SQLSetConnectOption return -1 diag S1C00 0 \"no\"");
  EXPECT_TRUE(session.Connect());
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, IsMadeWhenTheDriverSucceedsWithInformation) {
  ScriptedSession session("on SQLDriverConnect return 1 diag 01000 5701 \"changed database\"");
  EXPECT_TRUE(session.Connect());
  EXPECT_TRUE(session.odbc().connected);
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, ReportsWhyItWasRefused) {
  ScriptedSession session(kRefusal);
  EXPECT_FALSE(session.Connect());
  EXPECT_FALSE(session.odbc().connected);
  EXPECT_THAT(session.Boxes(), ElementsAre("( 18456) login failed"));
}

TEST(Connection, ReportsARefusalDuringARunInTheReportAlone) {
  ScriptedSession session(kRefusal);
  session.ReportToTheRun();
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(session.component.host.lines,
              ElementsAre(WrittenLine{"( 18456) login failed", ReportKind::kError, nullptr}));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, LeavesNoHandleWhenItWasRefused) {
  ScriptedSession session(kRefusal);
  EXPECT_FALSE(session.Connect());
  EXPECT_EQ(session.odbc().environment, nullptr);
  EXPECT_EQ(session.odbc().connection, nullptr);
  EXPECT_THAT(session.Calls(), ElementsAre("SQLAllocEnv", "SQLAllocConnect", "SQLSetConnectOption",
                                           "SQLSetConnectOption", "SQLDriverConnect",
                                           "SQLFreeConnect", "SQLFreeEnv"));
}

TEST(Connection, ClearsTheFlagOfAFormerOneWhenRefused) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  session.odbc().DisconnectDataSource();
  EXPECT_TRUE(session.odbc().connected);
  session.source.Script(kRefusal);
  EXPECT_FALSE(session.Connect());
  EXPECT_FALSE(session.odbc().connected);
}

TEST(Connection, ReportsAnUnknownDataSource) {
  ScriptedSession session;
  EXPECT_FALSE(session.odbc().ConnectDataSource("no such source", "", ""));
  EXPECT_THAT(session.Boxes(), ElementsAre(HasSubstr("Data source name not found")));
  EXPECT_EQ(session.odbc().connection, nullptr);
}

TEST(Connection, ReportsADriverThatCannotBeLoaded) {
  ScriptedSession session;
  const std::string name = session.source.Add("Missing", {{"Driver", "/nowhere/driver.so"}});
  EXPECT_FALSE(session.odbc().ConnectDataSource(name, "", ""));
  EXPECT_THAT(session.Boxes(), ElementsAre(HasSubstr("/nowhere/driver.so")));
}

TEST(Connection, ReportsADriverThatHasNoHandleToGive) {
  struct Case {
    const char* call;
    const char* expected;
  };
  for (const Case& each : {Case{"SQLAllocEnv", "SQLAllocHandle on SQL_HANDLE_HENV failed"},
                           Case{"SQLAllocConnect", "no memory"}}) {
    ScriptedSession session("on " + std::string(each.call) +
                            " return -1 diag S1001 9 \"no memory\"");
    EXPECT_FALSE(session.Connect()) << each.call;
    EXPECT_THAT(session.Boxes(), Contains(HasSubstr(each.expected))) << each.call;
    EXPECT_EQ(session.odbc().environment, nullptr);
    EXPECT_EQ(session.odbc().connection, nullptr);
  }
}

TEST(Connection, CanBeMadeAgainAfterARefusal) {
  ScriptedSession session("on SQLDriverConnect return -1 diag 08001 1 \"down\"");
  EXPECT_FALSE(session.Connect());
  session.source.Script("");
  EXPECT_TRUE(session.Connect());
  EXPECT_TRUE(session.odbc().connected);
}

TEST(Connection, ReleasesEveryHandleWhenItEnds) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  session.source.ClearLog();
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(session.Calls(), ElementsAre("SQLDisconnect", "SQLFreeConnect", "SQLFreeEnv"));
  EXPECT_EQ(session.odbc().environment, nullptr);
  EXPECT_EQ(session.odbc().connection, nullptr);
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, KeepsItsFlagAfterItsEnd) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  session.odbc().DisconnectDataSource();
  EXPECT_TRUE(session.odbc().connected);
}

TEST(Connection, LetsTheHostsWindowsRepaintAfterEachStepOfItsEnd) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.component.message_loop.yields(), 0);
  std::vector<std::vector<std::string>> calls_at_yield;
  session.source.ClearLog();
  session.component.message_loop.AtYield(1, [&] { calls_at_yield.push_back(session.Calls()); });
  session.odbc().DisconnectDataSource();
  EXPECT_EQ(session.component.message_loop.yields(), 3);
  EXPECT_THAT(calls_at_yield, ElementsAre(Contains("SQLDisconnect")));
}

TEST(Connection, GoesThroughEveryStepOfItsEndAlthoughOneFails) {
  ScriptedSession session("on SQLDisconnect 1 return -1 diag 25000 3 \"transaction open\"");
  EXPECT_TRUE(session.Connect());
  const SQLHENV environment = session.odbc().environment;
  const SQLHDBC connection = session.odbc().connection;
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(session.Boxes(), ElementsAre("Erreur Déconnexion  (SQLDisconnect)",
                                           "Erreur Libération ressources (SQLFreeConnect)",
                                           "Erreur Libération environnement (SQLFreeEnv)"));
  EXPECT_EQ(session.component.message_loop.yields(), 3);
  EXPECT_EQ(SQLDisconnect(connection), SQL_SUCCESS);
  EXPECT_EQ(SQLFreeConnect(connection), SQL_SUCCESS);
  EXPECT_EQ(SQLFreeEnv(environment), SQL_SUCCESS);
}

TEST(Connection, TellsOfADisconnectThatSucceedsWithInformation) {
  ScriptedSession session("on SQLDisconnect return 1 diag 01002 0 \"disconnect error\"");
  EXPECT_TRUE(session.Connect());
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(session.Boxes(), ElementsAre("Erreur Déconnexion  (SQLDisconnect)"));
}

TEST(Connection, EndsWithItsSession) {
  ScriptedDataSource source;
  {
    TestComponent component;
    EXPECT_TRUE(component.session().ConnectDataSource(source.name(), "", ""));
    source.ClearLog();
  }
  EXPECT_THAT(source.LogLines(),
              ElementsAre("SQLDisconnect = 0", "SQLFreeConnect = 0", "SQLFreeEnv = 0"));
}

TEST(Connection, GivesUpOneThatWasNeverEndedWhenItIsMadeAgain) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  session.source.ClearLog();
  EXPECT_TRUE(session.Connect());
  EXPECT_THAT(session.source.LogLines("SQLFreeEnv"), SizeIs(1));
  EXPECT_THAT(session.source.LogLines("SQLDisconnect"), ElementsAre("SQLDisconnect = 0"));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(Connection, IsGivenUpLaterWhenTheReportCannotBeWritten) {
  ScriptedSession session("on SQLGetInfo 1 return -1 diag S1096 7 \"no quote\"");
  session.component.host.failing_write = 1;
  session.ReportToTheRun();
  EXPECT_THROW(session.Connect(), RuntimeFault);
  EXPECT_FALSE(session.odbc().connected);
  session.source.Script("");
  session.source.ClearLog();
  EXPECT_TRUE(session.Connect());
  EXPECT_THAT(session.Calls(), ElementsAre("SQLDisconnect", "SQLFreeConnect", "SQLFreeEnv",
                                           "SQLAllocEnv", "SQLAllocConnect", "SQLSetConnectOption",
                                           "SQLSetConnectOption", "SQLDriverConnect", "SQLGetInfo",
                                           "SQLGetInfo", "SQLGetInfo", "SQLGetInfo", "SQLGetInfo"));
}

TEST(ReturnCode, IsFineOnlyWhenItIsZero) {
  ScriptedSession session;
  EXPECT_TRUE(session.odbc().CheckOdbcReturn(SQL_SUCCESS, Message::kQuit));
  EXPECT_THAT(session.Boxes(), IsEmpty());
  for (const int code :
       {SQL_SUCCESS_WITH_INFO, SQL_ERROR, SQL_INVALID_HANDLE, SQL_NO_DATA, SQL_NEED_DATA}) {
    ScriptedSession failing;
    EXPECT_FALSE(failing.odbc().CheckOdbcReturn(static_cast<SQLRETURN>(code), Message::kQuit))
        << code;
    EXPECT_THAT(failing.component.warnings.warnings(),
                ElementsAre(RecordingWarningBox::Warning{"&Quitter", "Importation Table"}));
  }
}

TEST(ReturnCode, GoesToTheReportAsAnErrorDuringARun) {
  ScriptedSession session;
  session.ReportToTheRun();
  EXPECT_FALSE(session.odbc().CheckOdbcReturn(SQL_ERROR, Message::kQuit));
  EXPECT_THAT(session.component.host.lines,
              ElementsAre(WrittenLine{"&Quitter", ReportKind::kError, nullptr}));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(ReturnCode, DoesNotMakeARunOneWithErrors) {
  ScriptedSession session;
  session.ReportToTheRun();
  EXPECT_FALSE(session.odbc().CheckOdbcReturn(SQL_ERROR, Message::kQuit));
  EXPECT_FALSE(session.run().error_reported);
}

TEST(ReturnCode, IsCaptionedInTheCurrentLanguage) {
  ScriptedSession session;
  session.component.module().language_offset = kEnglishOffset;
  EXPECT_FALSE(session.odbc().CheckOdbcReturn(SQL_ERROR, Message::kQuit));
  EXPECT_EQ(session.component.warnings.warnings().at(0).caption, "Import Table");
}

}  // namespace
}  // namespace imptable
