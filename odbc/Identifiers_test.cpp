#include <gtest/gtest.h>

#include <string>

#include "odbc/Catalogue.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

TEST(QuotedIdentifier, StandsBetweenTwoQuotesOfTheDriver) {
  TestComponent component;
  component.session().quote_char = "`";
  EXPECT_EQ(QuoteIdentifier(component.session(), "NOM"), "`NOM`");
  EXPECT_EQ(QuoteIdentifier(component.session(), "a b.c"), "`a b.c`");
  EXPECT_EQ(QuoteIdentifier(component.session(), ""), "``");
}

TEST(QuotedIdentifier, KeepsAQuoteWithinTheNameAsItIs) {
  TestComponent component;
  component.session().quote_char = "\"";
  EXPECT_EQ(QuoteIdentifier(component.session(), "a\"b"), "\"a\"b\"");
}

TEST(QuotedIdentifier, IsTheNameAloneWithoutAQuote) {
  TestComponent component;
  EXPECT_EQ(QuoteIdentifier(component.session(), "NOM"), "NOM");
}

TEST(TableReference, IsTheQuotedTableBehindTheQuotedOwner) {
  struct Case {
    const char* quote;
    const char* owner;
    const char* expected;
  };
  for (const Case& each : {Case{"\"", "", "\"CLIENT\""}, Case{"\"", "dbo", "\"dbo\".\"CLIENT\""},
                           Case{"", "dbo", "dbo.CLIENT"}, Case{"", "", "CLIENT"}}) {
    TestComponent component;
    component.session().quote_char = each.quote;
    EXPECT_EQ(TableReference(component.session(), {each.owner, "CLIENT"}), each.expected);
  }
}

TEST(EscapedUnderscores, StandBehindTheEscapeOneByOne) {
  struct Case {
    const char* name;
    const char* escape;
    const char* expected;
  };
  for (const Case& each :
       {Case{"MY_TABLE", "\\", "MY\\_TABLE"}, Case{"MY_TABLE", "", "MY_TABLE"},
        Case{"_A", "\\", "\\_A"}, Case{"A_", "\\", "A\\_"}, Case{"_", "\\", "\\_"},
        Case{"__", "\\", "\\_\\_"}, Case{"A__B_C", "\\", "A\\_\\_B\\_C"}, Case{"A_B", "^", "A^_B"},
        Case{"__", "", "__"}, Case{"A%B", "\\", "A%B"}, Case{"A\\B_C", "\\", "A\\B\\_C"},
        Case{"A_B", "_", "A__B"}, Case{"", "\\", ""}, Case{"CLIENT", "\\", "CLIENT"},
        Case{"\xC3\xA9_\xC3\xA9", "\\", "\xC3\xA9\\_\xC3\xA9"}}) {
    std::string name = each.name;
    EscapeUnderscores(name, each.escape);
    EXPECT_EQ(name, each.expected) << each.name << ' ' << each.escape;
  }
}

}  // namespace
}  // namespace imptable
