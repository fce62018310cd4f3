// The arguments that the driver manager's catalogue functions are called with. The functions below
// replace the driver manager's own in this program: they note their arguments and pass everything
// on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "odbc/Catalogue.h"
#include "tests/kit/ManagerFunction.h"
#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;

std::vector<std::string>* noted = nullptr;

std::string Shown(const SQLCHAR* text, SQLSMALLINT length) {
  if (text == nullptr) return " null/" + std::to_string(length);
  return " " + std::string(reinterpret_cast<const char*>(text)) + '/' + std::to_string(length);
}

template <typename Function>
Function* Own(const char* call, const std::string& arguments, Function*) {
  if (noted != nullptr) noted->push_back(call + arguments);
  return reinterpret_cast<Function*>(ManagerFunction(call));
}

}  // namespace
}  // namespace imptable

using imptable::Own;
using imptable::Shown;

SQLRETURN SQL_API SQLColumns(SQLHSTMT statement, SQLCHAR* catalogue, SQLSMALLINT catalogue_length,
                             SQLCHAR* owner, SQLSMALLINT owner_length, SQLCHAR* table,
                             SQLSMALLINT table_length, SQLCHAR* column, SQLSMALLINT column_length) {
  const std::string arguments = Shown(catalogue, catalogue_length) + Shown(owner, owner_length) +
                                Shown(table, table_length) + Shown(column, column_length);
  return Own("SQLColumns", arguments, &SQLColumns)(statement, catalogue, catalogue_length, owner,
                                                   owner_length, table, table_length, column,
                                                   column_length);
}

SQLRETURN SQL_API SQLSpecialColumns(SQLHSTMT statement, SQLUSMALLINT identifier, SQLCHAR* catalogue,
                                    SQLSMALLINT catalogue_length, SQLCHAR* owner,
                                    SQLSMALLINT owner_length, SQLCHAR* table,
                                    SQLSMALLINT table_length, SQLUSMALLINT scope,
                                    SQLUSMALLINT nullable) {
  const std::string arguments = ' ' + std::to_string(identifier) +
                                Shown(catalogue, catalogue_length) + Shown(owner, owner_length) +
                                Shown(table, table_length) + ' ' + std::to_string(scope) + ' ' +
                                std::to_string(nullable);
  return Own("SQLSpecialColumns", arguments, &SQLSpecialColumns)(
      statement, identifier, catalogue, catalogue_length, owner, owner_length, table, table_length,
      scope, nullable);
}

SQLRETURN SQL_API SQLPrimaryKeys(SQLHSTMT statement, SQLCHAR* catalogue,
                                 SQLSMALLINT catalogue_length, SQLCHAR* owner,
                                 SQLSMALLINT owner_length, SQLCHAR* table,
                                 SQLSMALLINT table_length) {
  const std::string arguments =
      Shown(catalogue, catalogue_length) + Shown(owner, owner_length) + Shown(table, table_length);
  return Own("SQLPrimaryKeys", arguments, &SQLPrimaryKeys)(
      statement, catalogue, catalogue_length, owner, owner_length, table, table_length);
}

SQLRETURN SQL_API SQLStatistics(SQLHSTMT statement, SQLCHAR* catalogue,
                                SQLSMALLINT catalogue_length, SQLCHAR* owner,
                                SQLSMALLINT owner_length, SQLCHAR* table, SQLSMALLINT table_length,
                                SQLUSMALLINT unique, SQLUSMALLINT accuracy) {
  const std::string arguments = Shown(catalogue, catalogue_length) + Shown(owner, owner_length) +
                                Shown(table, table_length) + ' ' + std::to_string(unique) + ' ' +
                                std::to_string(accuracy);
  return Own("SQLStatistics", arguments, &SQLStatistics)(statement, catalogue, catalogue_length,
                                                         owner, owner_length, table, table_length,
                                                         unique, accuracy);
}

namespace imptable {
namespace {

/// Every catalogue query about one table, each call with its arguments as "text/length".
std::vector<std::string> Calls(const std::string& owner, const std::string& table,
                               std::string_view script = {}) {
  ScriptedSession session(script);
  EXPECT_TRUE(session.Connect());
  session.run().owner = owner;
  session.run().table = table;
  std::vector<std::string> calls;
  noted = &calls;
  Catalogue catalogue = session.catalogue();
  std::vector<TableColumn> columns;
  std::vector<KeyColumn> key;
  std::vector<std::string> versions;
  EXPECT_TRUE(catalogue.GetTableColumns(columns));
  EXPECT_TRUE(catalogue.GetSpecialColumns(versions));
  EXPECT_TRUE(catalogue.GetPrimaryKeyColumns(key));
  EXPECT_TRUE(catalogue.GetUniqueIndexColumns(key));
  noted = nullptr;
  EXPECT_EQ(session.run().table, table);
  return calls;
}

TEST(CatalogueArguments, NameNoOwnerWhenTheTaskHasNone) {
  EXPECT_THAT(Calls("", "CLIENT"), ElementsAre("SQLColumns null/0 null/0 CLIENT/6 null/0",
                                               "SQLSpecialColumns 2 null/0 null/0 CLIENT/6 0 1",
                                               "SQLPrimaryKeys null/0 null/0 CLIENT/6",
                                               "SQLStatistics null/0 null/0 CLIENT/6 0 0"));
}

TEST(CatalogueArguments, NameTheOwnerOfTheTask) {
  EXPECT_THAT(Calls("dbo", "CLIENT"), ElementsAre("SQLColumns null/0 dbo/3 CLIENT/6 null/0",
                                                  "SQLSpecialColumns 2 null/0 dbo/3 CLIENT/6 0 1",
                                                  "SQLPrimaryKeys null/0 dbo/3 CLIENT/6",
                                                  "SQLStatistics null/0 dbo/3 CLIENT/6 0 0"));
}

TEST(CatalogueArguments, EscapeTheTableOnlyWhereItIsAPatternAndTheOwnerNowhere) {
  EXPECT_THAT(Calls("my_owner", "MY_TABLE"),
              ElementsAre("SQLColumns null/0 my_owner/8 MY\\_TABLE/9 null/0",
                          "SQLSpecialColumns 2 null/0 my_owner/8 MY_TABLE/8 0 1",
                          "SQLPrimaryKeys null/0 my_owner/8 MY_TABLE/8",
                          "SQLStatistics null/0 my_owner/8 MY_TABLE/8 0 0"));
}

TEST(CatalogueArguments, EscapeWithWhatTheDriverUses) {
  EXPECT_EQ(Calls("", "MY_TABLE", "info 14 \"^\"\n").at(0),
            "SQLColumns null/0 null/0 MY^_TABLE/9 null/0");
  for (const char* none : {"info 14 \"\"\n", "info 14 \" \"\n"}) {
    EXPECT_EQ(Calls("", "MY_TABLE", none).at(0), "SQLColumns null/0 null/0 MY_TABLE/8 null/0");
  }
}

TEST(CatalogueArguments, ReachTheDriver) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  session.run().table = "MY_TABLE";
  std::vector<TableColumn> columns;
  EXPECT_TRUE(session.catalogue().GetTableColumns(columns));
  session.run().owner = "dbo";
  EXPECT_TRUE(session.catalogue().GetTableColumns(columns));
  EXPECT_THAT(session.source.LogLines("SQLColumns"),
              ElementsAre("SQLColumns schema=<null> table=MY\\_TABLE = 0",
                          "SQLColumns schema=dbo table=MY\\_TABLE = 0"));
}

}  // namespace
}  // namespace imptable
