// What the catalogue says about tables of SQLite, through its ODBC driver.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "odbc/Catalogue.h"
#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A database file of its own, in which a test makes its tables.
class SqliteDatabase {
 public:
  SqliteDatabase()
      : name_(
            session.source.Add("Sqlite", {{"Driver", SQLITE_ODBC_DRIVER},
                                          {"Database", session.source.PathForDriver("base.db")}})) {
    EXPECT_TRUE(session.odbc().ConnectDataSource(name_, "", ""));
  }

  void Execute(const std::string& sql) {
    Statement statement;
    EXPECT_EQ(statement.Allocate(session.odbc().connection), SQL_SUCCESS);
    EXPECT_EQ(SQLExecDirect(statement.raw(), SqlText(sql), SQL_NTS), SQL_SUCCESS) << sql;
  }

  std::vector<TableColumn> Columns(const std::string& table) {
    session.run().table = table;
    std::vector<TableColumn> columns;
    EXPECT_TRUE(catalogue().GetTableColumns(columns));
    return columns;
  }
  std::vector<std::string> Names(const std::string& table) {
    std::vector<std::string> names;
    for (const TableColumn& column : Columns(table)) names.push_back(column.name);
    return names;
  }
  std::vector<std::string> PrimaryKey(const std::string& table) {
    return Key(table, &Catalogue::GetPrimaryKeyColumns);
  }
  std::vector<std::string> UniqueIndexes(const std::string& table) {
    return Key(table, &Catalogue::GetUniqueIndexColumns);
  }
  Catalogue catalogue() { return session.catalogue(); }

  ScriptedSession session;

 private:
  std::vector<std::string> Key(const std::string& table,
                               bool (Catalogue::*query)(std::vector<KeyColumn>&)) {
    session.run().table = table;
    std::vector<KeyColumn> key;
    Catalogue queries = catalogue();
    EXPECT_TRUE((queries.*query)(key));
    std::vector<std::string> names;
    for (const KeyColumn& column : key) {
      names.push_back(column.key_name + (column.key_name.empty() ? "" : ".") + column.column_name);
    }
    return names;
  }

  std::string name_;
};

TEST(SqliteCatalogue, QuotesAndEscapesAndLimitsNames) {
  SqliteDatabase base;
  EXPECT_EQ(base.session.odbc().quote_char, "\"");
  EXPECT_EQ(base.session.odbc().escape_char, "\\");
  EXPECT_EQ(base.session.odbc().max_column_name_length, 255);
  EXPECT_EQ(base.session.odbc().max_table_name_length, 255);
  EXPECT_THAT(base.session.Boxes(), IsEmpty());
}

// The driver doesn't read the size of a decimal from its declaration: it takes the column for a
// text whose size is the number of decimals. Sizes do not limit what SQLite stores.
TEST(SqliteCatalogue, GivesEachDeclaredTypeAsAnOdbcType) {
  SqliteDatabase base;
  base.Execute(
      "CREATE TABLE T (C1 INTEGER NOT NULL, C2 VARCHAR(30), C3 DECIMAL(10,2), C4 DATE, "
      "C5 TIMESTAMP, C6 FLOAT, C7 DOUBLE, C8 TEXT, C9 SMALLINT, C10 BIGINT, C11 CHAR(5), "
      "C12 NUMERIC(8,3), C13 REAL, C14 TIME, C15)");
  struct Case {
    std::int16_t sql_type;
    const char* type_name;
    std::int32_t precision;
    std::int16_t nullable;
  };
  const std::vector<Case> expected{
      {4, "INTEGER", 9, 0},  {12, "VARCHAR(30)", 30, 1}, {12, "DECIMAL(10,2)", 2, 1},
      {9, "DATE", 0, 1},     {11, "TIMESTAMP", 3, 1},    {8, "FLOAT", 53, 1},
      {8, "DOUBLE", 53, 1},  {-1, "TEXT", 0, 1},         {5, "SMALLINT", 5, 1},
      {-5, "BIGINT", 19, 1}, {12, "CHAR(5)", 5, 1},      {8, "NUMERIC(8,3)", 3, 1},
      {8, "REAL", 53, 1},    {10, "TIME", 0, 1},         {12, "", 0, 1}};
  const std::vector<TableColumn> columns = base.Columns("T");
  ASSERT_EQ(columns.size(), expected.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(columns[i].name, "C" + std::to_string(i + 1));
    EXPECT_EQ(columns[i].sql_type, expected[i].sql_type) << columns[i].type_name;
    EXPECT_EQ(columns[i].type_name, expected[i].type_name);
    EXPECT_EQ(columns[i].precision, expected[i].precision) << columns[i].type_name;
    EXPECT_EQ(columns[i].scale, 10) << columns[i].type_name;
    EXPECT_EQ(columns[i].nullable, expected[i].nullable) << columns[i].type_name;
  }
}

TEST(SqliteCatalogue, KnowsATableWithAnUnderscoreFromOneThatOnlyFitsThePattern) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE MYXTABLE (WRONG INTEGER)");
  base.Execute("CREATE TABLE MY_TABLE (RIGHT_ONE INTEGER)");
  EXPECT_THAT(base.Names("MY_TABLE"), ElementsAre("RIGHT_ONE"));
}

TEST(SqliteCatalogue, FindsATableWithoutRegardToCaseAndOwner) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE Client (CODE INTEGER)");
  EXPECT_THAT(base.Names("CLIENT"), ElementsAre("CODE"));
  base.session.run().owner = "dbo";
  EXPECT_THAT(base.Names("client"), ElementsAre("CODE"));
}

TEST(SqliteCatalogue, GivesNothingForATableThatIsNotThere) {
  SqliteDatabase base;
  EXPECT_THAT(base.Columns("NONE"), IsEmpty());
  EXPECT_THAT(base.PrimaryKey("NONE"), IsEmpty());
  EXPECT_THAT(base.UniqueIndexes("NONE"), IsEmpty());
  EXPECT_THAT(base.session.Boxes(), IsEmpty());
}

TEST(SqliteCatalogue, GivesAccentsAndBlanksInNamesAsTheyAre) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE \"été 1\" (\"prénom du client\" VARCHAR(30), \"a\"\"b\" INTEGER)");
  EXPECT_THAT(base.Names("été 1"), ElementsAre("prénom du client", "a\"b"));
}

// The members of a key come in the order of the table's columns, not in the key's own order.
TEST(SqliteCatalogue, GivesThePrimaryKey) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE ONE (CODE INTEGER PRIMARY KEY, NOM TEXT)");
  base.Execute("CREATE TABLE TWO (A INTEGER, B VARCHAR(5), C TEXT, PRIMARY KEY (B, A))");
  base.Execute("CREATE TABLE NO_KEY (A INTEGER)");
  EXPECT_THAT(base.PrimaryKey("ONE"), ElementsAre("CODE"));
  EXPECT_THAT(base.PrimaryKey("TWO"), ElementsAre("A", "B"));
  EXPECT_THAT(base.PrimaryKey("NO_KEY"), IsEmpty());
}

TEST(SqliteCatalogue, GivesUniqueIndexesAndLeavesOutTheOthers) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE T (A INTEGER, B TEXT, C TEXT)");
  base.Execute("CREATE UNIQUE INDEX IX_CA ON T (C, A)");
  base.Execute("CREATE INDEX IX_B ON T (B)");
  EXPECT_THAT(base.UniqueIndexes("T"), ElementsAre("IX_CA.C", "IX_CA.A"));
}

TEST(SqliteCatalogue, HasNoColumnsThatTheDatabaseVersions) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE T (CODE INTEGER PRIMARY KEY, TS TIMESTAMP)");
  base.session.run().table = "T";
  std::vector<std::string> versions;
  EXPECT_TRUE(base.catalogue().GetSpecialColumns(versions));
  EXPECT_TRUE(versions.empty());
}

TEST(SqliteCatalogue, ReportsWhatSqliteSaysWithItsOwnCode) {
  SqliteDatabase base;
  base.Execute("CREATE TABLE T (CODE INTEGER PRIMARY KEY)");
  base.Execute("INSERT INTO T VALUES (1)");
  Statement statement;
  EXPECT_EQ(statement.Allocate(base.session.odbc().connection), SQL_SUCCESS);
  const std::string again = "INSERT INTO T VALUES (1)";
  EXPECT_EQ(SQLExecDirect(statement.raw(), SqlText(again), SQL_NTS), SQL_ERROR);
  base.session.odbc().ReportOdbcError(statement.raw());
  EXPECT_THAT(base.session.Boxes(),
              ElementsAre("( 19) [SQLite]UNIQUE constraint failed: T.CODE (19)"));
}

TEST(SqliteCatalogue, ListsTablesWithoutOwnersAndLeavesViewsOut) {
  SqliteDatabase database;
  database.Execute("CREATE TABLE VENTES (A INTEGER)");
  database.Execute("CREATE TABLE CLIENT (A INTEGER)");
  database.Execute("CREATE VIEW TOUT AS SELECT A FROM CLIENT");
  std::vector<TableName> tables;
  EXPECT_TRUE(database.catalogue().GetTables(tables));
  std::vector<std::string> names;
  for (const TableName& table : tables) names.push_back(table.owner + '.' + table.name);
  EXPECT_THAT(names, testing::UnorderedElementsAre(".VENTES", ".CLIENT"));
}

}  // namespace
}  // namespace imptable
