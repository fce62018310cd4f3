#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/drivers-real/RealSource.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// One column of the table in docs/drivers.md.
struct DriverFacts {
  DatabaseKind kind;
  const char* quote;
  std::uint16_t longest_column_name;
  std::vector<std::string> own_types, columns, key_of_b_and_a;
  const char *dbms_name, *duplicate, *null_in_not_null, *no_number, *number_with_unit;
  const char *key_with_unit, *unknown_column, *unknown_table;
  const char *timestamp, *other_case_and_accent;
  const char *unchanged, *truncated, *nothing_to_set, *unknown_column_prepared;
  std::vector<std::string> gone;
};

const std::vector<DriverFacts>& Facts() {
  static const std::vector<DriverFacts> facts{
      {.kind = DatabaseKind::kSqlite,
       .quote = "\"",
       .longest_column_name = 255,
       .own_types = {"dou DOUBLE", "stamp TIMESTAMP", "day_time DATETIME"},
       .columns = {"code 4 INTEGER 9 10", "small 5 SMALLINT 5 10", "big -5 BIGINT 19 10",
                   "name 12 VARCHAR(30) 30 10", "site 12 CHAR(4) 4 10", "note -1 TEXT 0 10",
                   "price 12 DECIMAL(12,3) 3 10", "flo 8 FLOAT 53 10", "rea 8 REAL 53 10",
                   "since 9 DATE 0 10", "at 10 TIME 0 10", "open -7 BOOLEAN 1 10",
                   "dou 8 DOUBLE 53 10", "stamp 11 TIMESTAMP 3 10", "day_time 11 DATETIME 3 10"},
       .key_of_b_and_a = {"a", "b"},
       .dbms_name = "SQLite",
       .duplicate = "S1000 19",
       .null_in_not_null = "S1000 19",
       .no_number = "1 row(s)",
       .number_with_unit = "1 row(s)",
       .key_with_unit = "0 row(s)",
       .unknown_column = "S1000 1",
       .unknown_table = "S1000 1",
       .timestamp = "2006-01-02 08:30:00.000",
       .other_case_and_accent = "0 row(s)",
       .unchanged = "1 row(s)",
       .truncated = "S1000 1",
       .nothing_to_set = "S1000 1",
       .unknown_column_prepared = "S1000 1",
       .gone = {}},
      {.kind = DatabaseKind::kPostgresql,
       .quote = "\"",
       .longest_column_name = 63,
       .own_types = {"dou DOUBLE PRECISION", "stamp TIMESTAMP", "counted SERIAL"},
       .columns = {"code 4 int4 10 0", "small 5 int2 5 0", "big -5 int8 19 0",
                   "name 12 varchar 30 0", "site 1 bpchar 4 0", "note -1 text 8190 0",
                   "price 2 numeric 12 3", "flo 6 float8 17 0", "rea 7 float4 9 0",
                   "since 9 date 10 0", "at 10 time 8 6", "open 12 bool 5 0", "dou 6 float8 17 0",
                   "stamp 11 timestamp 26 6", "counted 4 int4 10 0"},
       .key_of_b_and_a = {"b", "a"},
       .dbms_name = "PostgreSQL",
       .duplicate = "23505 1",
       .null_in_not_null = "23502 1",
       .no_number = "22P02 1",
       .number_with_unit = "22P02 1",
       .key_with_unit = "22P02 1",
       .unknown_column = "42703 1",
       .unknown_table = "42P01 1",
       .timestamp = "2006-01-02 08:30:00",
       .other_case_and_accent = "0 row(s)",
       .unchanged = "1 row(s)",
       .truncated = "0 row(s)",
       .nothing_to_set = "42601 1",
       .unknown_column_prepared = "42703 1",
       .gone = {"08S01 35", "08S01 35", "08S01 35"}},
      {.kind = DatabaseKind::kMariadb,
       .quote = "`",
       .longest_column_name = 255,
       .own_types = {"dou DOUBLE", "stamp TIMESTAMP NULL", "day_time DATETIME"},
       .columns = {"code 4 INT 10 0", "small 5 SMALLINT 5 0", "big -5 BIGINT 19 0",
                   "name -9 VARCHAR 30 0", "site -8 CHAR 4 0", "note -10 TEXT 65535 0",
                   "price 3 DECIMAL 12 3", "flo 7 FLOAT 7 0", "rea 8 DOUBLE 15 0",
                   "since 9 DATE 10 0", "at 10 TIME 8 0", "open -6 TINYINT 3 0",
                   "dou 8 DOUBLE 15 0", "stamp 11 TIMESTAMP 19 0", "day_time 11 DATETIME 19 0"},
       .key_of_b_and_a = {"a", "b"},
       .dbms_name = "MariaDB",
       .duplicate = "23000 1062",
       .null_in_not_null = "23000 1048",
       .no_number = "22008 1366",
       .number_with_unit = "information, 0 row(s)",
       .key_with_unit = "1 row(s)",
       .unknown_column = "S0022 1054",
       .unknown_table = "S0002 1146",
       .timestamp = "2006-01-02 08:30:00",
       .other_case_and_accent = "1 row(s)",
       .unchanged = "0 row(s)",
       .truncated = "0 row(s)",
       .nothing_to_set = "prepared: 37000 1064",
       .unknown_column_prepared = "prepared: S0022 1054",
       .gone = {"08S01 2013", "08S01 2006", "08S01 2006"}}};
  return facts;
}

class RealDriver : public testing::TestWithParam<DriverFacts> {
 protected:
  RealDriver() : source_(GetParam().kind) {
    std::string types;
    for (const std::string& type : GetParam().own_types) types += ", " + type;
    source_.database().Execute(
        "CREATE TABLE client (code INTEGER PRIMARY KEY, small SMALLINT, big BIGINT, "
        "name VARCHAR(30) NOT NULL, site CHAR(4), note TEXT, price DECIMAL(12,3), flo FLOAT, "
        "rea REAL, since DATE, at TIME, open BOOLEAN" +
        types +
        ");\n"
        "CREATE VIEW seen AS SELECT * FROM client;\n"
        "INSERT INTO client (code, name) VALUES (1, 'a');\n"
        "INSERT INTO client (code, name) VALUES (2, 'b');\n");
  }

  RealSource source_;
};

TEST_P(RealDriver, SaysHowItsNamesAreQuotedAndEscaped) {
  EXPECT_EQ(source_.odbc().quote_char, GetParam().quote);
  EXPECT_EQ(source_.odbc().escape_char, "\\");
  EXPECT_EQ(source_.odbc().max_column_name_length, GetParam().longest_column_name);
}

TEST_P(RealDriver, DescribesColumns) {
  EXPECT_THAT(source_.Columns("client"), ElementsAreArray(GetParam().columns));
  EXPECT_THAT(source_.Columns("none"), IsEmpty());
}

TEST_P(RealDriver, KnowsThePrimaryKeysOfTablesAndNoneOfViews) {
  SQLUSMALLINT supported = SQL_FALSE;
  SQLGetFunctions(source_.odbc().connection, SQL_API_SQLPRIMARYKEYS, &supported);
  EXPECT_EQ(supported, SQL_TRUE);
  EXPECT_THAT(source_.PrimaryKey("client"), ElementsAre("code"));
  EXPECT_THAT(source_.PrimaryKey("seen"), IsEmpty());
  EXPECT_THAT(source_.PrimaryKey("none"), IsEmpty());
}

TEST_P(RealDriver, GivesAKeyOfSeveralColumnsInAnOrderOfItsOwn) {
  source_.database().Execute("CREATE TABLE two (a INTEGER, b INTEGER, PRIMARY KEY (b, a));");
  EXPECT_THAT(source_.PrimaryKey("two"), ElementsAreArray(GetParam().key_of_b_and_a));
}

TEST_P(RealDriver, VersionsNoColumnOfTheTable) {
  EXPECT_THAT(source_.VersionedColumns("client"), IsEmpty());
}

TEST_P(RealDriver, GivesTheseCodesForWhatTheDatabaseRefuses) {
  EXPECT_EQ(source_.Do("INSERT INTO client (code, name) VALUES (1, 'again')"),
            GetParam().duplicate);
  EXPECT_EQ(source_.Do("INSERT INTO client (code, name) VALUES (3, NULL)"),
            GetParam().null_in_not_null);
  EXPECT_EQ(source_.Do("INSERT INTO client (code, name, small) VALUES (4, 'd', 'abc')"),
            GetParam().no_number);
  // MariaDB's driver calls this a failure when it is executed at once. The import prepares its
  // statements.
  EXPECT_EQ(
      source_.DoPrepared("INSERT INTO client (code, name, small) VALUES (5, 'e', ?)", {"12 EUR"}),
      GetParam().number_with_unit);
  EXPECT_EQ(source_.Do("UPDATE client SET none = 1"), GetParam().unknown_column);
  EXPECT_EQ(source_.Do("DELETE FROM none"), GetParam().unknown_table);
}

TEST_P(RealDriver, CountsTheRowsOfAnUpdate) {
  constexpr const char* kUpdate = "UPDATE client SET name = ? WHERE code = ?";
  EXPECT_EQ(source_.DoPrepared(kUpdate, {"z", "1"}), "1 row(s)");
  EXPECT_EQ(source_.DoPrepared(kUpdate, {"z", "1"}), GetParam().unchanged) << "as it is";
  EXPECT_EQ(source_.DoPrepared(kUpdate, {"z", "99"}), "0 row(s)") << "no row";
  EXPECT_EQ(source_.Do("UPDATE client SET name = 'all'"), "2 row(s)");
}

TEST_P(RealDriver, CountsTheRowsOfADeleteAndTakesNoneForASuccess) {
  EXPECT_EQ(source_.DoPrepared("DELETE FROM client WHERE code = ?", {"99"}), "0 row(s)");
  EXPECT_EQ(source_.Do("DELETE FROM client WHERE code = 99"), "0 row(s)");
  EXPECT_EQ(source_.Do("DELETE FROM client"), "2 row(s)");
}

TEST_P(RealDriver, ComparesAKeyThatIsNoNumberByItsDatabasesRules) {
  EXPECT_EQ(source_.DoPrepared("DELETE FROM client WHERE code = ?", {"2 EUR"}),
            GetParam().key_with_unit);
}

TEST_P(RealDriver, NamesItsDatabaseByWhichItsDialectIsFound) {
  EXPECT_EQ(source_.odbc().dialect->dbms_name, GetParam().dbms_name);
}

TEST_P(RealDriver, TruncatesATableWhenItsDatabaseCan) {
  EXPECT_EQ(source_.Do("TRUNCATE TABLE client"), GetParam().truncated);
}

TEST_P(RealDriver, RefusesAStatementWhenItIsPreparedOrOnlyWhenItIsExecuted) {
  EXPECT_EQ(source_.DoPrepared("UPDATE client SET  WHERE code = ?", {"1"}),
            GetParam().nothing_to_set);
  EXPECT_EQ(source_.DoPrepared("UPDATE client SET name = ? WHERE none = ?", {"x", "1"}),
            GetParam().unknown_column_prepared);
}

TEST_P(RealDriver, WritesATimestampInAFormOfItsOwn) {
  EXPECT_EQ(source_.DoWithTime("UPDATE client SET stamp = ? WHERE code = 1"), "1 row(s)");
  EXPECT_EQ(source_.database().Rows("SELECT stamp FROM client WHERE code = 1;"),
            GetParam().timestamp + std::string("\n"));
}

TEST_P(RealDriver, ComparesTextsByItsDatabasesRules) {
  source_.database().Execute("UPDATE client SET name = 'zoe' WHERE code = 1;");
  EXPECT_EQ(source_.DoPrepared("UPDATE client SET site = ? WHERE name = ?", {"N", "Zoë"}),
            GetParam().other_case_and_accent);
}

/// Only databases with a server: a file has none that could go away.
class ServerDriver : public RealDriver {};

TEST_P(ServerDriver, StaysLostOnceItsServerHasGone) {
  ASSERT_EQ(source_.DoPrepared("UPDATE client SET site = ? WHERE code = ?", {"N", "1"}),
            "1 row(s)");
  source_.HangUp();
  std::vector<std::string> outcomes;
  while (outcomes.size() < GetParam().gone.size()) outcomes.push_back(source_.Again());
  EXPECT_THAT(outcomes, ElementsAreArray(GetParam().gone));
}

void PrintTo(const DriverFacts& facts, std::ostream* out) { *out << NameOf(facts.kind); }

std::string NameOfFacts(const testing::TestParamInfo<DriverFacts>& instance) {
  return std::string(NameOf(instance.param.kind));
}

INSTANTIATE_TEST_SUITE_P(Of, RealDriver, testing::ValuesIn(Facts()), NameOfFacts);
INSTANTIATE_TEST_SUITE_P(Of, ServerDriver, testing::Values(Facts()[1], Facts()[2]), NameOfFacts);

TEST(PostgresqlDriver, TakesPasswordsInBracesWithOuterBlanksToo) {
  RealSource source(DatabaseKind::kPostgresql);
  const std::string user = source.database().Rows("SELECT 'u_' || current_database();");
  const std::string name = user.substr(0, user.find('\n'));
  for (const std::string password : {"a;b", "a}b{c", "{ab}", " ab ", "a=b"}) {
    source.database().Execute("CREATE USER " + name + " PASSWORD '" + password + "';");
    EXPECT_TRUE(source.ConnectAs(name, password)) << password;
    EXPECT_FALSE(source.ConnectAs(name, password + 'x')) << password;
    source.database().Execute("DROP USER " + name + ';');
  }
}

TEST(MariadbDriver, TakesPasswordsInBracesButDropsOuterBlanks) {
  RealSource source(DatabaseKind::kMariadb);
  const std::string user = source.database().Rows("SELECT CONCAT('u_', DATABASE());");
  const std::string name = user.substr(0, user.find('\n'));
  const std::string account = name + "@'127.0.0.1'";
  for (const std::string password : {"a;b", "a}b{c", "{ab}", " ab ", "a=b"}) {
    source.database().Execute("CREATE USER " + account + " IDENTIFIED BY '" + password +
                              "'; GRANT ALL ON *.* TO " + account + ';');
    EXPECT_EQ(source.ConnectAs(name, password), password != std::string(" ab ")) << password;
    EXPECT_FALSE(source.ConnectAs(name, password + 'x')) << password;
    source.database().Execute("DROP USER " + account + ';');
  }
}

TEST(PostgresqlDriver, MakesMidnightOfATextThatIsNoTime) {
  RealSource source(DatabaseKind::kPostgresql);
  source.database().Execute("CREATE TABLE client (at TIME);");
  EXPECT_EQ(source.DoWithText("INSERT INTO client VALUES (?)", 10, "abc"), "1 row(s)");
  EXPECT_EQ(source.database().Rows("SELECT at FROM client;"), "00:00:00\n");
}

TEST(MariadbDriver, RefusesATextThatIsNoTimeButFindsMidnightByIt) {
  RealSource source(DatabaseKind::kMariadb);
  source.database().Execute("CREATE TABLE client (at TIME); INSERT INTO client VALUES ('00:00');");
  EXPECT_EQ(source.DoWithText("INSERT INTO client VALUES (?)", 10, "abc"), "22008 1292");
  EXPECT_EQ(source.DoWithText("DELETE FROM client WHERE at = ?", 10, "abc"), "1 row(s)");
}

TEST(MariadbDriver, StoresWhatItCanMakeOfAValueWithoutItsStrictMode) {
  RealSource source(DatabaseKind::kMariadb, "InitStmt=SET sql_mode=''");
  source.database().Execute("CREATE TABLE client (code INTEGER);");
  EXPECT_EQ(source.Do("INSERT INTO client VALUES ('12 EUR')"), "1 row(s)");
  EXPECT_EQ(source.Do("INSERT INTO client VALUES ('abc')"), "1 row(s)");
  EXPECT_EQ(source.database().Rows("SELECT code FROM client ORDER BY code;"), "0\n12\n");
}

TEST(MariadbDriver, CountsUnchangedRowsWhenTheDataSourceAsksForIt) {
  RealSource source(DatabaseKind::kMariadb, "Option=2");
  source.database().Execute("CREATE TABLE client (code INTEGER); INSERT INTO client VALUES (1);");
  EXPECT_EQ(source.Do("UPDATE client SET code = 1"), "1 row(s)");
}

}  // namespace
}  // namespace imptable
