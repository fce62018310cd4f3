#include "odbc/Dialect.h"

#include <gtest/gtest.h>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

TEST(Dialect, IsThatOfTheDatabaseThatTheDriverNames) {
  for (const char* name : {"SQLite", "PostgreSQL", "MariaDB"}) {
    ScriptedSession session("info 17 " + std::string(name));
    EXPECT_TRUE(session.Connect());
    EXPECT_EQ(session.odbc().dialect->dbms_name, name);
  }
}

TEST(Dialect, OfAnUnknownDatabaseAssumesNothing) {
  for (const char* script : {"", "info 17 \"Some Other\"", "info 17 \"\"",
                             "on SQLGetInfo 5 return -1 diag S1096 7 \"no name\""}) {
    ScriptedSession session(script);
    EXPECT_TRUE(session.Connect());
    const Dialect& dialect = *session.odbc().dialect;
    EXPECT_EQ(dialect.dbms_name, "");
    EXPECT_FALSE(dialect.refuses_with_information);
    EXPECT_FALSE(dialect.misreads_keys);
    EXPECT_FALSE(dialect.misreads_times);
    EXPECT_TRUE(dialect.number_words.empty());
    EXPECT_TRUE(session.Boxes().empty());
  }
}

TEST(Dialect, IsForgottenWithItsConnection) {
  ScriptedSession session("info 17 MariaDB");
  EXPECT_TRUE(session.Connect());
  session.odbc().DisconnectDataSource();
  session.source.Script("");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().dialect->dbms_name, "");
}

}  // namespace
}  // namespace imptable
