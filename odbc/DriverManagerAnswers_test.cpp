// Answers that no driver can make the real driver manager give. The functions below replace the
// driver manager's own in this program. They pass everything on until a test says otherwise.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "tests/kit/ManagerFunction.h"
#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ManagerRecord {
  SQLRETURN code;
  SQLINTEGER native;
  std::string text;
};

/// What the functions below do for one test.
class ManagerAnswers {
 public:
  ManagerAnswers() { current = this; }
  ~ManagerAnswers() { current = nullptr; }
  ManagerAnswers(const ManagerAnswers&) = delete;
  ManagerAnswers& operator=(const ManagerAnswers&) = delete;

  /// The next call gives this code and doesn't reach the driver manager.
  void Refuse(const std::string& call, SQLRETURN code) { refused[call] = code; }
  /// The next call reaches the driver manager, but gives this code.
  void Belie(const std::string& call, SQLRETURN code) { belied[call] = code; }

  static ManagerAnswers* current;
  std::map<std::string, SQLRETURN> refused;
  std::map<std::string, SQLRETURN> belied;
  std::deque<ManagerRecord> diagnostics;  // given by SQLError, when there are any
  std::vector<std::string> calls;
};

ManagerAnswers* ManagerAnswers::current = nullptr;

bool Take(std::map<std::string, SQLRETURN>& codes, const std::string& call, SQLRETURN& code) {
  const auto found = codes.find(call);
  if (found == codes.end()) return false;
  code = found->second;
  codes.erase(found);
  return true;
}

template <typename Function, typename... Arguments>
SQLRETURN PassOn(const char* call, const std::string& shown, Function* own,
                 Arguments... arguments) {
  static_assert(std::is_same_v<SQLRETURN, decltype(own(arguments...))>);
  const auto real = reinterpret_cast<Function*>(ManagerFunction(call));
  ManagerAnswers* const answers = ManagerAnswers::current;
  if (answers == nullptr) return real(arguments...);
  answers->calls.push_back(call + shown);
  SQLRETURN code = SQL_SUCCESS;
  if (Take(answers->refused, call, code)) return code;
  const SQLRETURN answered = real(arguments...);
  return Take(answers->belied, call, code) ? code : answered;
}

}  // namespace
}  // namespace imptable

using imptable::ManagerAnswers;
using imptable::PassOn;

SQLRETURN SQL_API SQLAllocEnv(SQLHENV* environment) {
  return PassOn("SQLAllocEnv", "", &SQLAllocEnv, environment);
}

SQLRETURN SQL_API SQLAllocConnect(SQLHENV environment, SQLHDBC* connection) {
  return PassOn("SQLAllocConnect", "", &SQLAllocConnect, environment, connection);
}

SQLRETURN SQL_API SQLFreeConnect(SQLHDBC connection) {
  return PassOn("SQLFreeConnect", "", &SQLFreeConnect, connection);
}

SQLRETURN SQL_API SQLFreeEnv(SQLHENV environment) {
  return PassOn("SQLFreeEnv", "", &SQLFreeEnv, environment);
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT statement, SQLUSMALLINT option) {
  return PassOn("SQLFreeStmt", ' ' + std::to_string(option), &SQLFreeStmt, statement, option);
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC connection, SQLHWND window, SQLCHAR* in,
                                   SQLSMALLINT in_length, SQLCHAR* out, SQLSMALLINT out_size,
                                   SQLSMALLINT* out_length, SQLUSMALLINT completion) {
  const std::string text(reinterpret_cast<const char*>(in), static_cast<std::size_t>(in_length));
  return PassOn(
      "SQLDriverConnect",
      ' ' + text + " window=" + (window == nullptr ? "none" : "some") +
          " out=" + std::to_string(out_size) + " completion=" + std::to_string(completion),
      &SQLDriverConnect, connection, window, in, in_length, out, out_size, out_length, completion);
}

SQLRETURN SQL_API SQLDataSources(SQLHENV environment, SQLUSMALLINT direction, SQLCHAR* name,
                                 SQLSMALLINT name_size, SQLSMALLINT* name_length,
                                 SQLCHAR* description, SQLSMALLINT description_size,
                                 SQLSMALLINT* description_length) {
  return PassOn("SQLDataSources",
                ' ' + std::to_string(direction) + ' ' + std::to_string(name_size) + ' ' +
                    std::to_string(description_size),
                &SQLDataSources, environment, direction, name, name_size, name_length, description,
                description_size, description_length);
}

SQLRETURN SQL_API SQLError(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                           SQLCHAR* state, SQLINTEGER* native, SQLCHAR* text, SQLSMALLINT size,
                           SQLSMALLINT* length) {
  ManagerAnswers* const answers = ManagerAnswers::current;
  if (answers == nullptr || answers->diagnostics.empty()) {
    return PassOn("SQLError", ' ' + std::to_string(size), &SQLError, environment, connection,
                  statement, state, native, text, size, length);
  }
  const auto record = answers->diagnostics.front();
  answers->diagnostics.pop_front();
  *native = record.native;
  *length = static_cast<SQLSMALLINT>(record.text.size());
  const auto room = static_cast<std::size_t>(size) - 1;
  text[record.text.copy(reinterpret_cast<char*>(text), room)] = '\0';
  return record.code;
}

namespace imptable {
namespace {

TEST(DriverManager, IsGivenTheWholeConnectionStringAndNoWindowToAskIn) {
  struct Case {
    const char* user;
    const char* password;
    const char* expected;
  };
  for (const Case& each :
       {Case{"", "", ""}, Case{"u", "p", ";UID=u;PWD=p"}, Case{"u", "", ";UID=u;PWD=;"},
        Case{"", "p", ";PWD=p"}, Case{"a=b", "c;d}e", ";UID=a=b;PWD={c;d}}e}"}}) {
    ScriptedSession session;
    ManagerAnswers manager;
    session.odbc().ConnectDataSource(session.source.name(), each.user, each.password);
    EXPECT_EQ(manager.calls.at(2), "SQLDriverConnect DSN=" + session.source.name() + each.expected +
                                       " window=none out=512 completion=0");
  }
}

TEST(DriverManager, IsNotAskedAnyFurtherWhenItHasNoEnvironment) {
  // Success with information is no success here.
  for (const SQLRETURN code : {SQLRETURN{SQL_ERROR}, SQLRETURN{SQL_SUCCESS_WITH_INFO}}) {
    ScriptedSession session;
    ManagerAnswers manager;
    manager.Refuse("SQLAllocEnv", code);
    EXPECT_FALSE(session.Connect());
    EXPECT_FALSE(session.odbc().connected);
    EXPECT_THAT(session.Boxes(), ElementsAre("Erreur Initialisation Environnement (SQLAllocEnv)"));
    EXPECT_THAT(manager.calls, ElementsAre("SQLAllocEnv"));
  }
}

TEST(DriverManager, GetsItsEnvironmentBackWhenItHasNoConnection) {
  ScriptedSession session;
  ManagerAnswers manager;
  manager.Refuse("SQLAllocConnect", SQL_ERROR);
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(session.Boxes(), ElementsAre("Erreur Handle de connexion  (SQLAllocConnect)"));
  EXPECT_THAT(manager.calls, ElementsAre("SQLAllocEnv", "SQLAllocConnect", "SQLFreeEnv"));
  EXPECT_EQ(session.odbc().environment, nullptr);
}

TEST(DriverManager, GetsBackAHandleThatCameWithInformation) {
  ScriptedSession session;
  ManagerAnswers manager;
  manager.Belie("SQLAllocEnv", SQL_SUCCESS_WITH_INFO);
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(manager.calls, ElementsAre("SQLAllocEnv", "SQLFreeEnv"));
  manager.calls.clear();
  manager.Belie("SQLAllocConnect", SQL_SUCCESS_WITH_INFO);
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(manager.calls,
              ElementsAre("SQLAllocEnv", "SQLAllocConnect", "SQLFreeConnect", "SQLFreeEnv"));
}

TEST(DriverManager, IsAskedAgainToFreeWhatItRefusedToFree) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  ManagerAnswers manager;
  manager.Refuse("SQLFreeConnect", SQL_ERROR);
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(manager.calls, ElementsAre("SQLFreeConnect", "SQLFreeEnv"));
  EXPECT_EQ(session.odbc().connection, nullptr);
  EXPECT_EQ(session.odbc().environment, nullptr);
  manager.calls.clear();
  EXPECT_TRUE(session.Connect());
  ASSERT_GE(manager.calls.size(), 3U);
  EXPECT_EQ(manager.calls[0], "SQLFreeConnect");
  EXPECT_EQ(manager.calls[1], "SQLFreeEnv");
  EXPECT_EQ(manager.calls[2], "SQLAllocEnv");
}

TEST(DriverManager, IsReportedWhenItCannotReleaseARefusedConnection) {
  ScriptedSession session("on SQLDriverConnect return -1 diag 28000 1 \"refused\"");
  ManagerAnswers manager;
  manager.Refuse("SQLFreeConnect", SQL_ERROR);
  manager.Refuse("SQLFreeEnv", SQL_ERROR);
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(session.Boxes(),
              ElementsAre("( 1) refused", "Erreur Libération ressources (SQLFreeConnect)",
                          "Erreur Libération environnement (SQLFreeEnv)"));
}

TEST(DriverManager, IsReportedInTheWordsOfTheCurrentLanguage) {
  ScriptedSession session("on SQLDisconnect return 1");
  session.component.module().language_offset = kEnglishOffset;
  ManagerAnswers manager;
  manager.Refuse("SQLAllocEnv", SQL_ERROR);
  EXPECT_FALSE(session.Connect());
  manager.Refuse("SQLAllocConnect", SQL_ERROR);
  EXPECT_FALSE(session.Connect());
  EXPECT_TRUE(session.Connect());
  manager.Refuse("SQLFreeConnect", SQL_ERROR);
  manager.Refuse("SQLFreeEnv", SQL_ERROR);
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(
      session.Boxes(),
      ElementsAre("Environment initialisation error (SQLAllocEnv)",
                  "Connection handle error  (SQLAllocConnect)", "Disconnect error (SQLDisconnect)",
                  "Free resource error (SQLAllocEnv)", "Free environment error (SQLAllocEnv)"));
}

TEST(DriverManager, IsReportedInTheReportDuringARun) {
  ScriptedSession session;
  session.ReportToTheRun();
  ManagerAnswers manager;
  manager.Refuse("SQLAllocEnv", SQL_ERROR);
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(session.component.host.lines,
              ElementsAre(WrittenLine{"Erreur Initialisation Environnement (SQLAllocEnv)",
                                      ReportKind::kError, nullptr}));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(DriverManager, IsReportedForEachStepOfADisconnectThatFails) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  ManagerAnswers manager;
  manager.Belie("SQLFreeConnect", SQL_SUCCESS_WITH_INFO);
  session.odbc().DisconnectDataSource();
  EXPECT_THAT(session.Boxes(), ElementsAre("Erreur Libération ressources (SQLFreeConnect)"));
  EXPECT_THAT(manager.calls, ElementsAre("SQLFreeConnect", "SQLFreeEnv"));
  EXPECT_EQ(session.component.message_loop.yields(), 3);
}

TEST(DriverManager, PassesOverADiagnosticWithoutTextAndGoesOn) {
  ScriptedSession session;
  ManagerAnswers manager;
  manager.diagnostics = {
      {SQL_SUCCESS, 1, "first"}, {SQL_SUCCESS, 2, ""}, {SQL_SUCCESS, 3, "third"}};
  session.odbc().ReportOdbcError();
  EXPECT_THAT(session.Boxes(), ElementsAre("( 1) first", "( 3) third"));
}

TEST(DriverManager, IsAskedNoFurtherAfterTheCodeThatItsCallerLooksFor) {
  ScriptedSession session;
  session.ReportToTheRun();
  ManagerAnswers manager;
  manager.diagnostics = {{SQL_SUCCESS, 1, "first"}, {SQL_SUCCESS, 2627, ""}, {SQL_SUCCESS, 3, "x"}};
  const std::vector<Diagnostic> taken = session.odbc().TakeDiagnostics(SQL_NULL_HSTMT, 2627);
  ASSERT_EQ(taken.size(), 2U);
  EXPECT_EQ(taken.back().native_code, 2627);
  EXPECT_EQ(manager.diagnostics.size(), 1U);
  EXPECT_FALSE(session.run().error_reported);
}

TEST(DriverManager, IsAskedNoFurtherAfterATextThatItCut) {
  ScriptedSession session;
  ManagerAnswers manager;
  manager.diagnostics = {{SQL_SUCCESS_WITH_INFO, 1, std::string(600, 'x')},
                         {SQL_SUCCESS, 2, "second"}};
  session.odbc().ReportOdbcError();
  EXPECT_THAT(session.Boxes(), ElementsAre("( 1) " + std::string(511, 'x')));
  EXPECT_EQ(manager.diagnostics.size(), 1U);
}

TEST(DriverManager, CountsAsAnErrorEvenWhenItCannotSayWhich) {
  ScriptedSession session;
  session.ReportToTheRun();
  ManagerAnswers manager;
  manager.diagnostics = {{SQL_ERROR, 0, "unread"}, {SQL_SUCCESS, 2, "second"}};
  session.odbc().ReportOdbcError();
  EXPECT_THAT(session.Boxes(), IsEmpty());
  EXPECT_EQ(manager.diagnostics.size(), 1U);
  EXPECT_TRUE(session.run().error_reported);
}

TEST(DriverManager, IsAskedForDiagnosticsOf512Bytes) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  ManagerAnswers manager;
  session.odbc().ReportOdbcError();
  EXPECT_THAT(manager.calls, ElementsAre("SQLError 512"));
}

TEST(ReleasedStatement, IsForgottenOnlyWhenTheDriverManagerConfirms) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  SQLHSTMT statement = SQL_NULL_HSTMT;
  EXPECT_EQ(SQLAllocStmt(session.odbc().connection, &statement), SQL_SUCCESS);
  const SQLHSTMT allocated = statement;
  ManagerAnswers manager;
  for (const SQLRETURN code : {SQLRETURN{SQL_ERROR}, SQLRETURN{SQL_SUCCESS_WITH_INFO}}) {
    manager.Refuse("SQLFreeStmt", code);
    FreeStatement(statement);
    EXPECT_EQ(statement, allocated) << code;
  }
  FreeStatement(statement);
  EXPECT_EQ(statement, nullptr);
  EXPECT_THAT(manager.calls, ElementsAre("SQLFreeStmt 1", "SQLFreeStmt 1", "SQLFreeStmt 1"));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(ReleasedStatement, IsNotReleasedOnceMoreWhenItWentWithInformation) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  ManagerAnswers manager;
  Statement statement;
  EXPECT_EQ(statement.Allocate(session.odbc().connection), SQL_SUCCESS);
  manager.Belie("SQLFreeStmt", SQL_SUCCESS_WITH_INFO);
  statement.Drop();
  EXPECT_FALSE(statement);
  statement.Drop();
  EXPECT_THAT(manager.calls, ElementsAre("SQLFreeStmt 1"));
}

TEST(DataSourceList, IsAskedForEntryByEntryOnAnEnvironmentOfItsOwn) {
  ScriptedDataSource source;
  ManagerAnswers manager;
  std::vector<std::string> names;
  ListDataSources([&](const std::string& name) { names.push_back(name); });
  EXPECT_THAT(names, ElementsAre(source.name()));
  EXPECT_THAT(manager.calls, ElementsAre("SQLAllocEnv", "SQLDataSources 1 500 500",
                                         "SQLDataSources 1 500 500", "SQLFreeEnv"));
}

TEST(DataSourceList, TakesAnEntryThatComesWithInformation) {
  ScriptedDataSource source;
  const std::string second = source.Add("Second", {{"Driver", "/nowhere/driver.so"}});
  ManagerAnswers manager;
  manager.Belie("SQLDataSources", SQL_SUCCESS_WITH_INFO);
  std::vector<std::string> names;
  ListDataSources([&](const std::string& name) { names.push_back(name); });
  EXPECT_THAT(names, ElementsAre(source.name(), second));
}

TEST(DataSourceList, IsEmptyWithoutAnEnvironment) {
  ScriptedDataSource source;
  ManagerAnswers manager;
  manager.Refuse("SQLAllocEnv", SQL_ERROR);
  std::vector<std::string> names;
  ListDataSources([&](const std::string& name) { names.push_back(name); });
  EXPECT_THAT(names, IsEmpty());
}

}  // namespace
}  // namespace imptable
