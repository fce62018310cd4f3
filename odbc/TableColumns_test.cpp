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

constexpr const char* kTasks = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches";

/// The columns of the table CLIENT of a task "T1", as a script of the driver describes them.
class ClientTable {
 public:
  explicit ClientTable(std::string_view script) : session(script) {
    EXPECT_TRUE(session.Connect());
    session.component.module().location = {kHkeyLocalMachine, kTasks};
    session.run().task = "T1";
    session.run().table = "CLIENT";
  }

  bool Load() { return catalogue().GetTableColumns(columns); }
  bool LoadVersions() { return catalogue().GetSpecialColumns(versions); }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const TableColumn& column : columns) names.push_back(column.name);
    return names;
  }

  ScriptedSession session;
  std::vector<TableColumn> columns;
  std::vector<std::string> versions;

 private:
  Catalogue catalogue() { return session.catalogue(); }
};

TEST(TableColumns, AreThoseOfTheDriverInItsOrder) {
  ClientTable table(
      "column NOM 12 VARCHAR 30 null 1\n"
      "column CODE 4 INTEGER 10 0 0\n"
      "column MONTANT 3 DECIMAL 12 2 2\n"
      "column TEXTE -1 TEXT 2147483647 null 1\n");
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(table.Names(), ElementsAre("NOM", "CODE", "MONTANT", "TEXTE"));
  const TableColumn& amount = table.columns.at(2);
  EXPECT_EQ(amount.sql_type, 3);
  EXPECT_EQ(amount.type_name, "DECIMAL");
  EXPECT_EQ(amount.precision, 12);
  EXPECT_EQ(amount.scale, 2);
  EXPECT_EQ(amount.nullable, 2);
  EXPECT_EQ(table.columns.at(1).nullable, 0);
  EXPECT_EQ(table.columns.at(3).sql_type, -1);
  EXPECT_EQ(table.columns.at(3).precision, 2147483647);
}

TEST(TableColumns, MayBeNone) {
  ClientTable table("");
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(table.columns, IsEmpty());
  EXPECT_THAT(table.session.Boxes(), IsEmpty());
}

TEST(TableColumns, ReplaceThoseThatTheListHeld) {
  ClientTable table("column CODE 4 INTEGER 10 0 0\n");
  EXPECT_TRUE(table.Load());
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(table.Names(), ElementsAre("CODE"));
}

TEST(TableColumns, AreReadIntoBuffersOfTheDriversSizes) {
  ClientTable table("info 30 18\ncolumn CODE 4 INTEGER 10 0 0\n");
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(
      table.session.source.LogLines("SQLBindCol"),
      ElementsAre("SQLBindCol 4 ctype=1 buflen=19 = 0", "SQLBindCol 5 ctype=5 buflen=2 = 0",
                  "SQLBindCol 6 ctype=1 buflen=51 = 0", "SQLBindCol 7 ctype=4 buflen=4 = 0",
                  "SQLBindCol 9 ctype=5 buflen=2 = 0", "SQLBindCol 11 ctype=5 buflen=2 = 0"));
}

TEST(TableColumns, HaveNothingOfTheRowBeforeWhereTheDriverGivesNull) {
  ClientTable table(
      "column MONTANT 3 DECIMAL 12 2 1\n"
      "column null null null null null null\n"
      "column CODE 4 INTEGER 10 0 0\n");
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(table.Names(), ElementsAre("MONTANT", "", "CODE"));
  const TableColumn& unknown = table.columns.at(1);
  EXPECT_EQ(unknown.sql_type, 0);
  EXPECT_EQ(unknown.type_name, "");
  EXPECT_EQ(unknown.precision, 0);
  EXPECT_EQ(unknown.scale, 0);
  EXPECT_EQ(unknown.nullable, 0);
}

TEST(TableColumns, MayHaveNamesAsLongAsTheDriverSaysAndTypesOf50Bytes) {
  const std::string type(50, 'T');
  ClientTable table("info 30 6\ncolumn ABCDEF 12 " + type + " 30 0 1\ncolumn A 4 INT 10 0 1\n");
  EXPECT_TRUE(table.Load());
  EXPECT_THAT(table.Names(), ElementsAre("ABCDEF", "A"));
  EXPECT_EQ(table.columns.at(0).type_name, type);
}

TEST(TableColumns, FailWithANameOrTypeThatIsLonger) {
  for (const std::string& column :
       {std::string("ABCDEFG 12 VARCHAR"), "B 12 " + std::string(51, 'T')}) {
    ClientTable table("info 30 6\ncolumn A 4 INTEGER 10 0 0\ncolumn " + column + " 30 0 1\n");
    EXPECT_FALSE(table.Load()) << column;
    EXPECT_THAT(table.Names(), ElementsAre("A"));
    EXPECT_THAT(table.session.Boxes(), ElementsAre("( 0) Data truncated"));
  }
}

TEST(RowVersions, AreThoseOfTheDriverInItsOrder) {
  ClientTable table(
      "column CODE 4 INTEGER 10 0 0\n"
      "rowversion V2\nrowversion V1\nrowversion null\nrowid CODE\n");
  table.versions = {"of before"};
  EXPECT_TRUE(table.LoadVersions());
  EXPECT_THAT(table.versions, ElementsAre("V2", "V1", ""));
}

TEST(RowVersions, MayBeNone) {
  ClientTable table("column TS -2 TIMESTAMP 8 0 0\n");
  EXPECT_TRUE(table.LoadVersions());
  EXPECT_THAT(table.versions, IsEmpty());
}

TEST(RowVersions, AreReadIntoABufferOfTheDriversSize) {
  ClientTable table("info 30 18\nrowversion TS\n");
  EXPECT_TRUE(table.LoadVersions());
  EXPECT_THAT(table.session.source.LogLines("SQLBindCol"),
              ElementsAre("SQLBindCol 2 ctype=1 buflen=19 = 0"));
}

}  // namespace
}  // namespace imptable
