#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/drivers/OdbcClient.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTwoTables =
    "table CLIENT TABLE sales\n"
    "column CODE 4 INTEGER 10 0 0\n"
    "column NOM 12 VARCHAR 30 null 1 remarks \"a name\"\n"
    "key CODE 1 PK_CLIENT\n"
    "index null null null 0\n"
    "index NOM 1 IX_NOM 3 nonunique\n"
    "index CODE 1 IX_CODE 3\n"
    "rowversion TS\n"
    "rowid CODE 4 INTEGER\n"
    "table MY_TABLE VIEW\n"
    "column X 1 CHAR 5 null 1\n"
    "table MYSTABLE\n"
    "column Y 1 CHAR 5 null 1\n";

struct Catalogue {
  explicit Catalogue(std::string_view script) : client(Prepared(script)) {}
  std::string Prepared(std::string_view script) {
    source.Script(script);
    return source.name();
  }
  /// Values of one result column after SQLColumns.
  std::vector<std::string> Columns(const std::string& table, SQLUSMALLINT column) {
    EXPECT_EQ(client.Columns(table), SQL_SUCCESS);
    auto values = client.FetchAll(column);
    client.Close();
    return values;
  }
  std::vector<std::string> Values(SQLRETURN code, SQLUSMALLINT column) {
    EXPECT_EQ(code, SQL_SUCCESS);
    auto values = client.FetchAll(column);
    client.Close();
    return values;
  }

  ScriptedDataSource source;
  OdbcClient client;
};

SQLCHAR* Client() {
  static SQLCHAR name[] = "CLIENT";
  return name;
}

TEST(ScriptedCatalogue, GivesTheColumnsOfTheTableAskedFor) {
  Catalogue catalogue(kTwoTables);
  EXPECT_THAT(catalogue.Columns("CLIENT", 3), ElementsAre("CLIENT", "CLIENT"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 4), ElementsAre("CODE", "NOM"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 5), ElementsAre("4", "12"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 6), ElementsAre("INTEGER", "VARCHAR"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 7), ElementsAre("10", "30"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 9), ElementsAre("0", "<null>"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 11), ElementsAre("0", "1"));
  EXPECT_THAT(catalogue.Columns("CLIENT", 12), ElementsAre("<null>", "a name"));
  EXPECT_THAT(catalogue.Columns("ELSEWHERE", 4), IsEmpty());
}

TEST(ScriptedCatalogue, TakesTheNameOfATableAsAPattern) {
  Catalogue catalogue(kTwoTables);
  EXPECT_THAT(catalogue.Columns("MY_TABLE", 4), ElementsAre("X", "Y"));
  EXPECT_THAT(catalogue.Columns("MY\\_TABLE", 4), ElementsAre("X"));
  EXPECT_EQ(catalogue.source.LogLines("SQLColumns").back(),
            "SQLColumns schema=<null> table=MY\\_TABLE = 0");
}

TEST(ScriptedCatalogue, EscapesPatternsWithWhatItAnsweredAsEscape) {
  Catalogue catalogue(std::string("info 14 \"^\"\n") + kTwoTables);
  EXPECT_THAT(catalogue.Columns("MY^_TABLE", 4), ElementsAre("X"));
}

TEST(ScriptedCatalogue, AnswersForAnyTableWithRowsThatBelongToNone) {
  Catalogue catalogue("column A 4 INTEGER 10 0 0\n");
  EXPECT_THAT(catalogue.Columns("MY\\_TABLE", 3), ElementsAre("MY_TABLE"));
  EXPECT_THAT(catalogue.Columns("OTHER", 4), ElementsAre("A"));
}

TEST(ScriptedCatalogue, GivesKeysIndexesAndSpecialColumns) {
  Catalogue catalogue(kTwoTables);
  const SQLHSTMT statement = catalogue.client.statement();
  const auto keys = [&] {
    return SQLPrimaryKeys(statement, nullptr, 0, nullptr, 0, Client(), SQL_NTS);
  };
  EXPECT_THAT(catalogue.Values(keys(), 4), ElementsAre("CODE"));
  EXPECT_THAT(catalogue.Values(keys(), 6), ElementsAre("PK_CLIENT"));
  const auto statistics = [&](SQLUSMALLINT unique) {
    return SQLStatistics(statement, nullptr, 0, nullptr, 0, Client(), SQL_NTS, unique, SQL_QUICK);
  };
  EXPECT_THAT(catalogue.Values(statistics(SQL_INDEX_ALL), 9), ElementsAre("<null>", "NOM", "CODE"));
  EXPECT_THAT(catalogue.Values(statistics(SQL_INDEX_ALL), 4), ElementsAre("<null>", "1", "0"));
  EXPECT_THAT(catalogue.Values(statistics(SQL_INDEX_UNIQUE), 6), ElementsAre("<null>", "IX_CODE"));
  const auto special = [&](SQLUSMALLINT identifier) {
    return SQLSpecialColumns(statement, identifier, nullptr, 0, nullptr, 0, Client(), SQL_NTS,
                             SQL_SCOPE_CURROW, SQL_NULLABLE);
  };
  EXPECT_THAT(catalogue.Values(special(SQL_ROWVER), 2), ElementsAre("TS"));
  EXPECT_THAT(catalogue.Values(special(SQL_BEST_ROWID), 2), ElementsAre("CODE"));
}

TEST(ScriptedCatalogue, ListsTablesByType) {
  Catalogue catalogue(kTwoTables);
  const SQLHSTMT statement = catalogue.client.statement();
  const auto tables = [&](SQLCHAR* types) {
    return SQLTables(statement, nullptr, 0, nullptr, 0, nullptr, 0, types, SQL_NTS);
  };
  SQLCHAR views[] = "'VIEW', 'SYNONYM'";
  EXPECT_THAT(catalogue.Values(tables(nullptr), 3), ElementsAre("CLIENT", "MY_TABLE", "MYSTABLE"));
  EXPECT_THAT(catalogue.Values(tables(nullptr), 2), ElementsAre("sales", "<null>", "<null>"));
  EXPECT_THAT(catalogue.Values(tables(views), 3), ElementsAre("MY_TABLE"));
}

TEST(ScriptedCatalogue, FillsBoundColumnsInTheTypeAskedFor) {
  Catalogue catalogue(kTwoTables);
  const SQLHSTMT statement = catalogue.client.statement();
  ASSERT_EQ(catalogue.client.Columns("CLIENT"), SQL_SUCCESS);
  char name[3] = "";
  SQLSMALLINT type = 0;
  SQLINTEGER precision = 0;
  SQLSMALLINT scale = 77;
  SQLLEN lengths[4] = {};
  SQLBindCol(statement, 4, SQL_C_CHAR, name, sizeof name, &lengths[0]);
  SQLBindCol(statement, 5, SQL_C_SHORT, &type, 0, &lengths[1]);
  SQLBindCol(statement, 7, SQL_C_LONG, &precision, 0, &lengths[2]);
  SQLBindCol(statement, 9, SQL_C_SHORT, &scale, 0, &lengths[3]);
  EXPECT_EQ(SQLFetch(statement), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(catalogue.client.StatementDiagnostics().at(0).state, "01004");
  EXPECT_STREQ(name, "CO");
  EXPECT_THAT(lengths, ElementsAre(4, 2, 4, 2));
  EXPECT_EQ(type, SQL_INTEGER);
  EXPECT_EQ(precision, 10);
  EXPECT_EQ(scale, 0);
  scale = 77;
  EXPECT_EQ(SQLFetch(statement), SQL_SUCCESS_WITH_INFO);
  EXPECT_EQ(lengths[3], SQL_NULL_DATA);
  EXPECT_EQ(scale, 77);
  EXPECT_EQ(SQLFetch(statement), SQL_NO_DATA_FOUND);
}

TEST(ScriptedCatalogue, EndsOrBreaksAFetchWhereTheScriptSays) {
  Catalogue catalogue(std::string("on SQLFetch 2 return -1 diag S1000 4 broken\n") + kTwoTables);
  ASSERT_EQ(catalogue.client.Columns("CLIENT"), SQL_SUCCESS);
  EXPECT_EQ(SQLFetch(catalogue.client.statement()), SQL_SUCCESS);
  EXPECT_EQ(SQLFetch(catalogue.client.statement()), SQL_ERROR);
  EXPECT_EQ(catalogue.client.StatementDiagnostics().at(0).text, "broken");
}

TEST(ScriptedDataSource, ServesSeveralDataSourcesAtOnce) {
  ScriptedDataSource source;
  const std::string sqlite =
      source.Add("Sqlite", {{"Driver", SQLITE_ODBC_DRIVER}, {"Database", source.folder() / "db"}});
  const std::string missing = source.Add("Missing", {{"Driver", "/nowhere/driver.so"}});
  OdbcClient scripted(source.name());
  OdbcClient real(sqlite);
  OdbcClient none(missing);
  EXPECT_EQ(scripted.connected(), SQL_SUCCESS);
  EXPECT_EQ(none.connected(), SQL_ERROR);
  ASSERT_EQ(real.connected(), SQL_SUCCESS);
  EXPECT_EQ(real.ExecDirect("CREATE TABLE T (A INTEGER)"), SQL_SUCCESS);
}

TEST(ScriptedDataSource, GivesASecondScriptedDataSourceItsOwnScript) {
  ScriptedDataSource source;
  source.Script("rowcount 2");
  const auto script = source.folder() / "other.txt";
  std::ofstream(script) << "rowcount 3\n";
  OdbcClient first(source.name());
  OdbcClient second(
      source.Add("Other", {{"Driver", ScriptedDataSource::DriverPath()}, {"Script", script}}));
  for (OdbcClient* client : {&first, &second}) client->ExecDirect("DELETE FROM T");
  EXPECT_EQ(first.RowCount(), 2);
  EXPECT_EQ(second.RowCount(), 3);
}

TEST(ScriptedDataSource, ReadsAChangedScriptAtTheNextConnection) {
  ScriptedDataSource source;
  std::vector<SQLLEN> counts;
  for (const char* script : {"rowcount 4", "rowcount 5"}) {
    source.Script(script);
    OdbcClient client(source.name());
    client.ExecDirect("DELETE FROM T");
    counts.push_back(client.RowCount());
  }
  EXPECT_THAT(counts, ElementsAre(4, 5));
}

TEST(ScriptedDataSource, PutsTheEnvironmentBackAndRemovesItsFolder) {
  setenv("ODBCINI", "before", 1);
  unsetenv("ODBCSYSINI");
  std::filesystem::path folder;
  {
    ScriptedDataSource source;
    folder = source.folder();
    EXPECT_EQ(getenv("ODBCINI"), (folder / "odbc.ini").string());
    EXPECT_TRUE(std::filesystem::exists(folder));
  }
  EXPECT_STREQ(getenv("ODBCINI"), "before");
  EXPECT_EQ(getenv("ODBCSYSINI"), nullptr);
  EXPECT_FALSE(std::filesystem::exists(folder));
  unsetenv("ODBCINI");
}

// The driver manager hands an empty text on as undefined bytes, so the driver is asked directly.
TEST(ScriptedDriver, GivesADiagnosticWithoutText) {
  ScriptedDataSource source;
  source.Script("on SQLAllocConnect return -1 diag 01000 4 \"\"");
  void* driver = dlopen(ScriptedDataSource::DriverPath().c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(driver, nullptr) << dlerror();
  const auto alloc_env = reinterpret_cast<decltype(&SQLAllocEnv)>(dlsym(driver, "SQLAllocEnv"));
  const auto free_env = reinterpret_cast<decltype(&SQLFreeEnv)>(dlsym(driver, "SQLFreeEnv"));
  const auto alloc_connect =
      reinterpret_cast<decltype(&SQLAllocConnect)>(dlsym(driver, "SQLAllocConnect"));
  const auto error = reinterpret_cast<decltype(&SQLError)>(dlsym(driver, "SQLError"));
  SQLHENV environment = SQL_NULL_HENV;
  SQLHDBC connection = SQL_NULL_HDBC;
  EXPECT_EQ(alloc_env(&environment), SQL_SUCCESS);
  EXPECT_EQ(alloc_connect(environment, &connection), SQL_ERROR);
  SQLCHAR state[6] = "";
  SQLCHAR text[8] = "before";
  SQLINTEGER native = 0;
  SQLSMALLINT length = -1;
  const auto next = [&] {
    return error(environment, SQL_NULL_HDBC, SQL_NULL_HSTMT, state, &native, text, sizeof text,
                 &length);
  };
  EXPECT_EQ(next(), SQL_SUCCESS);
  EXPECT_STREQ(reinterpret_cast<char*>(text), "");
  EXPECT_EQ(length, 0);
  EXPECT_EQ(native, 4);
  EXPECT_EQ(next(), SQL_NO_DATA_FOUND);
  EXPECT_EQ(free_env(environment), SQL_SUCCESS);
  dlclose(driver);
}

}  // namespace
}  // namespace imptable
