#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "tests/drivers/OdbcClient.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A client of a data source that plays a script.
struct Play {
  explicit Play(std::string_view script) : client(Prepared(script)) {}

  std::string Prepared(std::string_view script) {
    source.Script(script);
    return source.name();
  }
  std::vector<std::string> Log(std::string_view call) const { return source.LogLines(call); }

  ScriptedDataSource source;
  OdbcClient client;
};

struct TextParameter {
  TextParameter(OdbcClient& client, SQLUSMALLINT number) {
    SQLBindParameter(client.statement(), number, SQL_PARAM_INPUT, SQL_C_CHAR, SQL_VARCHAR, 30, 0,
                     text, sizeof text, &indicator);
  }
  void Set(const char* value) {
    std::strncpy(text, value, sizeof text - 1);
    indicator = SQL_NTS;
  }

  char text[32] = "";
  SQLLEN indicator = SQL_NTS;
};

TEST(ScriptedDriver, ObeysAnEmptyScriptByAcceptingEverything) {
  Play play("");
  EXPECT_EQ(play.client.connected(), SQL_SUCCESS);
  EXPECT_EQ(play.client.Prepare("INSERT INTO T VALUES (1)"), SQL_SUCCESS);
  EXPECT_EQ(play.client.Execute(), SQL_SUCCESS);
  EXPECT_EQ(play.client.RowCount(), 1);
}

TEST(ScriptedDriver, LogsOneLineForEachCallThatTheManagerPassesOn) {
  ScriptedDataSource source;
  {
    OdbcClient client(source.name());
    client.ExecDirect("DELETE FROM T\nWHERE A = 1");
  }
  EXPECT_THAT(source.LogLines(),
              ElementsAre("SQLAllocEnv = 0", "SQLAllocConnect = 0",
                          "SQLDriverConnect DSN=" + source.name() + ";UID=me;PWD=secret = 0",
                          "SQLAllocStmt = 0", "SQLExecDirect DELETE FROM T\\nWHERE A = 1 = 0",
                          "SQLFreeStmt DROP = 0", "SQLDisconnect = 0", "SQLFreeConnect = 0",
                          "SQLFreeEnv = 0"));
}

TEST(ScriptedDriver, LogsNothingWithoutALog) {
  ScriptedDataSource source(ScriptedDataSource::Logging::kOff);
  OdbcClient client(source.name());
  EXPECT_EQ(client.ExecDirect("DELETE FROM T"), SQL_SUCCESS);
  EXPECT_THAT(source.LogLines(), IsEmpty());
}

TEST(ScriptedDriver, RefusesTheCallOfTheNumberThatTheScriptNames) {
  Play play(R"(on SQLExecute 2 return -1 diag 23000 2627 "duplicate key" diag 01000 0 "second")");
  play.client.Prepare("INSERT");
  EXPECT_EQ(play.client.Execute(), SQL_SUCCESS);
  EXPECT_EQ(play.client.Execute(), SQL_ERROR);
  EXPECT_THAT(play.client.StatementDiagnostics(),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS, "23000", 2627, "duplicate key"},
                          SeenDiagnostic{SQL_SUCCESS, "01000", 0, "second"}));
  EXPECT_EQ(play.client.Execute(), SQL_SUCCESS);
  EXPECT_THAT(play.client.StatementDiagnostics(), IsEmpty());
}

TEST(ScriptedDriver, RefusesEveryNthCallAndAllCallsFromANumberOn) {
  Play play(
      "on SQLExecute every 2 return -1\n"
      "on SQLExecute from 5 return 1\n");
  play.client.Prepare("INSERT");
  std::vector<SQLRETURN> codes;
  for (int i = 0; i < 6; ++i) codes.push_back(play.client.Execute());
  EXPECT_THAT(codes, ElementsAre(0, -1, 0, -1, 1, -1));
}

TEST(ScriptedDriver, CutsATextThatIsLongerThanTheCallersBuffer) {
  Play play("on SQLExecDirect return 1 diag 01000 7 \"abcdefghij\"");
  EXPECT_EQ(play.client.ExecDirect("DELETE FROM T"), SQL_SUCCESS_WITH_INFO);
  EXPECT_THAT(play.client.StatementDiagnostics(5),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS_WITH_INFO, "01000", 7, "abcd"}));
}

TEST(ScriptedDriver, DecidesByTheValueOfAParameter) {
  Play play(
      "on SQLExecute where 1 = \"7\" return -1 diag 23000 1 seven\n"
      "on SQLExecute where 2 = 12.50 return -1 diag 23000 2 number\n"
      "on SQLExecute where 1 = null return -1 diag 23000 3 null\n");
  play.client.Prepare("INSERT INTO T VALUES (?, ?)");
  TextParameter first(play.client, 1);
  SQLDOUBLE second = 1;
  SQLBindParameter(play.client.statement(), 2, SQL_PARAM_INPUT, SQL_C_DOUBLE, SQL_DOUBLE, 15, 0,
                   &second, sizeof second, nullptr);
  first.Set("6");
  EXPECT_EQ(play.client.Execute(), SQL_SUCCESS);
  first.Set("7");
  EXPECT_EQ(play.client.Execute(), SQL_ERROR);
  first.indicator = SQL_NULL_DATA;
  EXPECT_EQ(play.client.Execute(), SQL_ERROR);
  EXPECT_EQ(play.client.StatementDiagnostics().at(0).native, 3);
  first.Set("");
  second = 12.5;
  EXPECT_EQ(play.client.Execute(), SQL_ERROR);
  EXPECT_EQ(play.client.StatementDiagnostics().at(0).native, 2);
}

TEST(ScriptedDriver, DecidesByTheTextOfAStatement) {
  Play play("on SQLPrepare where text like \"DELETE%\" return -1 diag 42000 1 no");
  EXPECT_EQ(play.client.Prepare("INSERT INTO T VALUES (1)"), SQL_SUCCESS);
  EXPECT_EQ(play.client.Prepare("DELETE FROM T"), SQL_ERROR);
}

TEST(ScriptedDriver, ShowsEachKindOfParameterInTheLog) {
  Play play("");
  play.client.Prepare("INSERT INTO T VALUES (?, ?, ?, ?, ?, ?)");
  char text[] = "abcdef";
  SQLLEN three = 3;
  SQLLEN null = SQL_NULL_DATA;
  SQLDOUBLE number = 12.5;
  SQL_DATE_STRUCT date{2006, 11, 15};
  SQL_TIMESTAMP_STRUCT moment{2006, 11, 15, 8, 30, 0, 0};
  SQL_TIMESTAMP_STRUCT fraction{2006, 11, 15, 8, 30, 0, 120000000};
  const auto bind = [&](SQLUSMALLINT at, SQLSMALLINT c_type, SQLSMALLINT sql_type, void* value,
                        SQLLEN* indicator) {
    SQLBindParameter(play.client.statement(), at, SQL_PARAM_INPUT, c_type, sql_type, 30, 0, value,
                     500, indicator);
  };
  bind(1, SQL_C_CHAR, SQL_VARCHAR, text, &three);
  bind(2, SQL_C_CHAR, SQL_VARCHAR, text, &null);
  bind(3, SQL_C_DOUBLE, SQL_DOUBLE, &number, nullptr);
  bind(4, SQL_C_TIMESTAMP, SQL_TIMESTAMP, &moment, nullptr);
  bind(5, SQL_C_DATE, SQL_DATE, &date, nullptr);
  bind(6, SQL_C_TIMESTAMP, SQL_TIMESTAMP, &fraction, nullptr);
  play.client.Execute();
  EXPECT_THAT(
      play.Log("SQLBindParameter"),
      Contains("SQLBindParameter 1 io=1 ctype=1 sqltype=12 size=30 digits=0 buflen=500 = 0"));
  EXPECT_THAT(play.Log("SQLExecute"),
              ElementsAre("SQLExecute 1='abc' 2=NULL 3=12.5 4={2006-11-15 08:30:00} "
                          "5={2006-11-15} 6={2006-11-15 08:30:00.12} = 0"));
}

TEST(ScriptedDriver, CountsRowsAsTheScriptSays) {
  Play play(
      "rowcount -1\n"
      "rowcount at 2 = 5\n"
      "rowcount where 1 = \"x\" = 0\n");
  play.client.Prepare("UPDATE T SET A = ?");
  TextParameter value(play.client, 1);
  std::vector<SQLLEN> counts;
  for (const char* text : {"a", "b", "x", "c"}) {
    value.Set(text);
    play.client.Execute();
    counts.push_back(play.client.RowCount());
  }
  EXPECT_THAT(counts, ElementsAre(-1, 5, 0, -1));
}

TEST(ScriptedDriver, AnswersInformationAsTheScriptSays) {
  Play play("info 29 \"`\"\ninfo 30 18\n");
  char text[8] = "";
  SQLSMALLINT length = 0;
  SQLUSMALLINT number = 0;
  const SQLHDBC connection = play.client.connection();
  EXPECT_EQ(SQLGetInfo(connection, SQL_IDENTIFIER_QUOTE_CHAR, text, sizeof text, &length), 0);
  EXPECT_STREQ(text, "`");
  EXPECT_EQ(SQLGetInfo(connection, SQL_MAX_COLUMN_NAME_LEN, &number, 2, &length), 0);
  EXPECT_EQ(number, 18);
  EXPECT_EQ(SQLGetInfo(connection, SQL_MAX_TABLE_NAME_LEN, &number, 2, &length), 0);
  EXPECT_EQ(number, 128);
  EXPECT_EQ(SQLGetInfo(connection, SQL_SEARCH_PATTERN_ESCAPE, text, sizeof text, &length), 0);
  EXPECT_STREQ(text, "\\");
}

TEST(ScriptedDriver, SupportsAFunctionUnlessTheScriptDeniesIt) {
  for (const bool denied : {false, true}) {
    Play play(denied ? "support 65 no" : "");
    SQLUSMALLINT keys = 9;
    SQLUSMALLINT statistics = 9;
    EXPECT_EQ(SQLGetFunctions(play.client.connection(), SQL_API_SQLPRIMARYKEYS, &keys), 0);
    EXPECT_EQ(SQLGetFunctions(play.client.connection(), SQL_API_SQLSTATISTICS, &statistics), 0);
    EXPECT_EQ(keys, denied ? SQL_FALSE : SQL_TRUE);
    EXPECT_EQ(statistics, SQL_TRUE);
  }
}

TEST(ScriptedDriver, RefusesAStatementOnTheConnection) {
  Play play("on SQLAllocStmt 2 return -1 diag S1001 5 \"no memory\"");
  SQLHSTMT second = SQL_NULL_HSTMT;
  EXPECT_EQ(SQLAllocStmt(play.client.connection(), &second), SQL_ERROR);
  EXPECT_THAT(play.client.ConnectionDiagnostics(),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS, "S1001", 5, "no memory"}));
}

TEST(ScriptedDriver, RefusesAConnection) {
  Play play("on SQLDriverConnect return -1 diag 08001 18 \"refused\"");
  EXPECT_EQ(play.client.connected(), SQL_ERROR);
  EXPECT_THAT(play.client.ConnectionDiagnostics(),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS, "08001", 18, "refused"}));
}

TEST(ScriptedDriver, RefusesItsHandlesWhenTheManagerConnects) {
  for (const char* call : {"SQLAllocEnv", "SQLAllocConnect"}) {
    Play play("on " + std::string(call) + " return -1 diag S1001 9 early");
    EXPECT_EQ(play.client.connected(), SQL_ERROR) << call;
    EXPECT_THAT(play.Log(call), SizeIs(1)) << call;
    EXPECT_THAT(play.Log("SQLDriverConnect"), IsEmpty()) << call;
  }
}

TEST(ScriptedDriver, RefusesToDisconnect) {
  Play play("on SQLDisconnect 1 return -1 diag 25000 3 \"transaction open\"");
  const SQLHDBC connection = play.client.connection();
  EXPECT_EQ(SQLDisconnect(connection), SQL_ERROR);
  EXPECT_THAT(play.client.ConnectionDiagnostics(),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS, "25000", 3, "transaction open"}));
}

TEST(ScriptedDriver, TellsWhichLineOfTheScriptIsWrong) {
  Play play("# fine\nrowcount 1\nturn left\n");
  EXPECT_EQ(play.client.connected(), SQL_ERROR);
  EXPECT_THAT(play.client.ConnectionDiagnostics(),
              ElementsAre(SeenDiagnostic{SQL_SUCCESS, "S1000", 0,
                                         "script line 3: \"turn\" is no keyword"}));
}

TEST(ScriptedDriver, WaitsWhereTheScriptIsSlow) {
  Play play("slow SQLExecDirect 30 ms");
  const auto start = std::chrono::steady_clock::now();
  play.client.ExecDirect("DELETE FROM T");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
}

TEST(ScriptedDriverDeathTest, AbortsTheProcessWhereTheScriptCrashes) {
  ScriptedDataSource source;
  source.Script("crash SQLExecDirect 2");
  const auto run = [&] {
    OdbcClient client(source.name());
    client.ExecDirect("first");
    client.ExecDirect("second");
  };
  EXPECT_EXIT(run(), testing::KilledBySignal(SIGABRT), "");
  EXPECT_THAT(source.LogLines("SQLExecDirect"),
              ElementsAre("SQLExecDirect first = 0", "SQLExecDirect second crash"));
}

}  // namespace
}  // namespace imptable
