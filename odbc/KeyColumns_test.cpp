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

class KeyOfClient {
 public:
  explicit KeyOfClient(std::string_view script) : session(script) {
    EXPECT_TRUE(session.Connect());
    session.run().table = "CLIENT";
  }
  bool LoadPrimaryKey() { return catalogue().GetPrimaryKeyColumns(columns); }
  bool LoadUniqueIndexes() { return catalogue().GetUniqueIndexColumns(columns); }

  /// Each key column as "column position name".
  std::vector<std::string> Columns() const {
    std::vector<std::string> texts;
    for (const KeyColumn& column : columns) {
      texts.push_back(column.column_name + ' ' + std::to_string(column.position) + ' ' +
                      column.key_name);
    }
    return texts;
  }

  ScriptedSession session;
  std::vector<KeyColumn> columns;

 private:
  Catalogue catalogue() { return session.catalogue(); }
};

TEST(PrimaryKey, IsListedInTheDriversOrderWithoutItsName) {
  KeyOfClient key(
      "key NUMERO 2 PK_CLIENT\n"
      "key AGENCE 1 PK_CLIENT\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_THAT(key.Columns(), ElementsAre("NUMERO 2 ", "AGENCE 1 "));
}

TEST(PrimaryKey, IsReadIntoBuffersOfTheDriversSizes) {
  KeyOfClient key("info 30 18\nkey CODE 1 PK\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_THAT(key.session.source.LogLines("SQLBindCol"),
              ElementsAre("SQLBindCol 4 ctype=1 buflen=19 = 0", "SQLBindCol 5 ctype=5 buflen=2 = 0",
                          "SQLBindCol 6 ctype=1 buflen=19 = 0"));
}

TEST(PrimaryKey, MayBeMissing) {
  KeyOfClient key("column CODE 4 INTEGER 10 0 0\nindex CODE 1 IX 3\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_THAT(key.columns, IsEmpty());
  EXPECT_THAT(key.session.Boxes(), IsEmpty());
}

TEST(PrimaryKey, HasNothingOfTheRowBeforeWhereTheDriverGivesNull) {
  KeyOfClient key("key CODE 3 PK\nkey null null null\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_THAT(key.Columns(), ElementsAre("CODE 3 ", " 0 "));
}

TEST(PrimaryKey, ReplacesWhatTheListHeld) {
  KeyOfClient key("key CODE 1 PK\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_THAT(key.Columns(), ElementsAre("CODE 1 "));
}

TEST(PrimaryKey, FailsWithANameThatIsLongerThanTheDriverSaid) {
  for (const char* row : {"key ABCDEFG 2 PK\n", "key B 2 PK_CLIENT\n"}) {
    KeyOfClient key("info 30 6\nkey A 1 PK\n" + std::string(row));
    EXPECT_FALSE(key.LoadPrimaryKey()) << row;
    EXPECT_THAT(key.Columns(), ElementsAre("A 1 "));
    EXPECT_THAT(key.session.Boxes(), ElementsAre("( 0) Data truncated"));
  }
}

TEST(UniqueIndexes, AreListedInTheDriversOrderWithTheirNames) {
  KeyOfClient key(
      "index NOM 2 IX_NOM 3\n"
      "index PRENOM 1 IX_NOM 3\n"
      "index CODE 1 IX_CODE 1\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.Columns(), ElementsAre("NOM 2 IX_NOM", "PRENOM 1 IX_NOM", "CODE 1 IX_CODE"));
}

TEST(UniqueIndexes, AreListedWithoutTheRowOfTheTableItself) {
  KeyOfClient key(
      "index null null null 0\n"
      "index CODE 1 IX_CODE 3\n"
      "index X 9 IX_X 0\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.Columns(), ElementsAre("CODE 1 IX_CODE"));
}

TEST(UniqueIndexes, AreListedWithoutIndexesThatAllowDuplicates) {
  KeyOfClient key("index NOM 1 IX_NOM 3 nonunique\nindex CODE 1 IX_CODE 3 unique\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.Columns(), ElementsAre("CODE 1 IX_CODE"));
}

TEST(UniqueIndexes, AreReadIntoBuffersOfTheDriversSizes) {
  KeyOfClient key("info 30 18\nindex CODE 1 IX 3\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(
      key.session.source.LogLines("SQLBindCol"),
      ElementsAre("SQLBindCol 9 ctype=1 buflen=19 = 0", "SQLBindCol 8 ctype=5 buflen=2 = 0",
                  "SQLBindCol 6 ctype=1 buflen=19 = 0", "SQLBindCol 7 ctype=5 buflen=2 = 0"));
}

TEST(UniqueIndexes, HaveNothingOfTheRowBeforeWhereTheDriverGivesNull) {
  KeyOfClient key("index CODE 3 IX 3\nindex null null null 3\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.Columns(), ElementsAre("CODE 3 IX", " 0 "));
}

TEST(UniqueIndexes, ReplaceWhatTheListHeld) {
  KeyOfClient key("key CODE 1 PK\nindex NOM 1 IX 3\n");
  EXPECT_TRUE(key.LoadPrimaryKey());
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.Columns(), ElementsAre("NOM 1 IX"));
}

TEST(UniqueIndexes, MayBeMissing) {
  KeyOfClient key("key CODE 1 PK\n");
  EXPECT_TRUE(key.LoadUniqueIndexes());
  EXPECT_THAT(key.columns, IsEmpty());
}

}  // namespace
}  // namespace imptable
