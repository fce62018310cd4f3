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
using testing::SizeIs;

class TableListing {
 public:
  explicit TableListing(std::string_view script) : session(script) {
    EXPECT_TRUE(session.Connect());
  }

  bool Load() { return session.catalogue().GetTables(tables); }

  /// Each table as "owner.name".
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const TableName& table : tables) names.push_back(table.owner + '.' + table.name);
    return names;
  }

  ScriptedSession session;
  std::vector<TableName> tables;
};

TEST(TableList, HasTheTablesOfEveryOwnerInTheDriversOrder) {
  TableListing listing(
      "table VENTES TABLE dbo\n"
      "table CLIENT TABLE\n"
      "table TOUT VIEW dbo\n"
      "table CLIENT TABLE agence\n");
  listing.session.run().owner = "dbo";
  listing.session.run().table = "CLIENT";
  EXPECT_TRUE(listing.Load());
  EXPECT_THAT(listing.Names(), ElementsAre("dbo.VENTES", ".CLIENT", "agence.CLIENT"));
  EXPECT_THAT(listing.session.source.LogLines("SQLTables"),
              ElementsAre("SQLTables schema=<null> table=<null> types='TABLE' = 0"));
  EXPECT_THAT(listing.session.source.LogLines("SQLFreeStmt"), SizeIs(1));
}

TEST(TableList, MayBeEmpty) {
  TableListing listing("table TOUT VIEW dbo\n");
  listing.tables.push_back({"old", "one"});
  EXPECT_TRUE(listing.Load());
  EXPECT_THAT(listing.tables, IsEmpty());
  EXPECT_THAT(listing.session.Boxes(), IsEmpty());
}

TEST(TableList, HasNamesLongerThanTheDriverAdmitsTo) {
  const std::string name(256, 'N');
  TableListing listing("info 35 10\ntable " + name + " TABLE " + name + "\n");
  EXPECT_TRUE(listing.Load());
  EXPECT_THAT(listing.Names(), ElementsAre(name + '.' + name));
}

TEST(TableList, FailsAfterTheDriversDiagnostic) {
  for (const std::string& call : std::vector<std::string>{"SQLTables", "SQLBindCol", "SQLFetch"}) {
    TableListing listing("table CLIENT\non " + call + " return -1 diag S1000 7 \"broken\"\n");
    EXPECT_FALSE(listing.Load()) << call;
    EXPECT_THAT(listing.session.Boxes(), ElementsAre("( 7) broken")) << call;
    EXPECT_THAT(listing.session.source.LogLines("SQLFreeStmt"), SizeIs(1)) << call;
  }
}

TEST(PrimaryKeyQuery, IsThereWhenTheDriverSaysSo) {
  ScriptedSession with;
  EXPECT_TRUE(with.Connect());
  EXPECT_TRUE(with.catalogue().CanListPrimaryKeys());
  ScriptedSession without("support 65 no\n");
  EXPECT_TRUE(without.Connect());
  EXPECT_FALSE(without.catalogue().CanListPrimaryKeys());
}

}  // namespace
}  // namespace imptable
