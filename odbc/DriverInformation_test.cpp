#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "odbc/Catalogue.h"
#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DriverInformation, IsAskedForInAFixedOrderOnceConnected) {
  ScriptedSession session;
  session.source.ClearLog();
  EXPECT_TRUE(session.Connect());
  EXPECT_THAT(session.source.LogLines("SQLGetInfo"),
              ElementsAre("SQLGetInfo 29 = 0", "SQLGetInfo 30 = 0", "SQLGetInfo 35 = 0",
                          "SQLGetInfo 14 = 0", "SQLGetInfo 17 = -1"));
}

TEST(DriverInformation, IsNotAskedForWhenTheConnectionIsRefused) {
  ScriptedSession session("on SQLDriverConnect return -1 diag 08001 1 \"down\"");
  EXPECT_FALSE(session.Connect());
  EXPECT_THAT(session.source.LogLines("SQLGetInfo"), IsEmpty());
}

TEST(DriverInformation, IsKeptAsTheDriverGivesIt) {
  ScriptedSession session("info 29 \"`\"\ninfo 30 18\ninfo 35 64\ninfo 14 \"^\"\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().quote_char, "`");
  EXPECT_EQ(session.odbc().escape_char, "^");
  EXPECT_EQ(session.odbc().max_column_name_length, 18);
  EXPECT_EQ(session.odbc().max_table_name_length, 64);
}

TEST(DriverInformation, TakesFiftyForNameLengthsThatTheDriverDoesNotLimit) {
  ScriptedSession session("info 30 0\ninfo 35 0\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().max_column_name_length, 50);
  EXPECT_EQ(session.odbc().max_table_name_length, 50);
}

TEST(DriverInformation, TakesFiftyInSilenceForNameLengthsThatTheDriverRefuses) {
  ScriptedSession session(
      "on SQLGetInfo where text = \"30\" return -1 diag S1096 7 \"no column names\"\n"
      "on SQLGetInfo where text = \"35\" return -1 diag S1096 8 \"no table names\"\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().max_column_name_length, 50);
  EXPECT_EQ(session.odbc().max_table_name_length, 50);
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(DriverInformation, ReportsARefusedQuoteOrEscapeButStaysConnected) {
  ScriptedSession session(
      "on SQLGetInfo where text = \"29\" return -1 diag S1096 7 \"no quote\"\n"
      "on SQLGetInfo where text = \"14\" return -1 diag S1096 8 \"no escape\"\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_TRUE(session.odbc().connected);
  EXPECT_THAT(session.Boxes(), ElementsAre("( 7) no quote", "( 8) no escape"));
  EXPECT_EQ(session.odbc().quote_char, "");
  EXPECT_EQ(session.odbc().escape_char, "");
  EXPECT_EQ(session.odbc().max_column_name_length, 128);
}

TEST(DriverInformation, ReportsARefusedQuoteInTheReportDuringARun) {
  ScriptedSession session(
      "on SQLGetInfo where text = \"29\" return -1 diag S1096 7 \"no quote\"\n");
  session.ReportToTheRun();
  EXPECT_TRUE(session.Connect());
  EXPECT_THAT(session.component.host.Texts(), ElementsAre("( 7) no quote"));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

TEST(DriverInformation, TakesTheFirstCharacterOfALongerQuoteOrEscapeAndReportsTheRest) {
  ScriptedSession session("info 29 \"[[\"\ninfo 14 \"!!!\"\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().quote_char, "[");
  EXPECT_EQ(session.odbc().escape_char, "!");
  EXPECT_THAT(session.Boxes(), ElementsAre("( 0) Data truncated", "( 0) Data truncated"));
}

TEST(DriverInformation, TakesABlankOrEmptyQuoteOrEscapeForNone) {
  for (const std::string none : {"", " "}) {
    ScriptedSession session("info 29 \"" + none + "\"\ninfo 14 \"" + none + "\"\n");
    EXPECT_TRUE(session.Connect());
    EXPECT_EQ(session.odbc().quote_char, "") << '"' << none << '"';
    EXPECT_EQ(session.odbc().escape_char, "") << '"' << none << '"';
    EXPECT_EQ(QuoteIdentifier(session.odbc(), "NOM"), "NOM");
    EXPECT_THAT(session.Boxes(), IsEmpty());
  }
}

TEST(DriverInformation, ForgetsWhatAFormerDriverSaid) {
  ScriptedSession session("info 29 \"`\"\ninfo 30 18\ninfo 35 18\ninfo 14 \"^\"\n");
  EXPECT_TRUE(session.Connect());
  session.odbc().DisconnectDataSource();
  session.source.Script("info 29 \"\"\ninfo 30 0\ninfo 35 0\ninfo 14 \"\"\n");
  EXPECT_TRUE(session.Connect());
  EXPECT_EQ(session.odbc().quote_char, "");
  EXPECT_EQ(session.odbc().escape_char, "");
  EXPECT_EQ(session.odbc().max_column_name_length, 50);
  EXPECT_EQ(session.odbc().max_table_name_length, 50);
}

}  // namespace
}  // namespace imptable
