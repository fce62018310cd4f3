#include "odbc/ConnectionString.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(ConnectionString, LeavesAnOrdinaryValueAsItIs) {
  for (const char* value : {"", "p", "a=b", "a b", "it's", "(x)[y]!?*@,", "\t"}) {
    EXPECT_EQ(ConnectionValue(value), value);
  }
}

TEST(ConnectionString, PutsAValueInBracesThatWouldEndBeforeItsTime) {
  EXPECT_EQ(ConnectionValue("a;b"), "{a;b}");
  EXPECT_EQ(ConnectionValue(";"), "{;}");
  EXPECT_EQ(ConnectionValue(" a"), "{ a}");
  EXPECT_EQ(ConnectionValue("a "), "{a }");
  EXPECT_EQ(ConnectionValue(" "), "{ }");
  EXPECT_EQ(ConnectionValue("a{b"), "{a{b}");
}

TEST(ConnectionString, DoublesTheClosingBracesOfSuchAValue) {
  EXPECT_EQ(ConnectionValue("a}b"), "{a}}b}");
  EXPECT_EQ(ConnectionValue("{ab}"), "{{ab}}}");
  EXPECT_EQ(ConnectionValue("}}"), "{}}}}}");
}

TEST(ConnectionString, SendsNeitherUserNorPasswordWhenBothAreEmpty) {
  EXPECT_EQ(ConnectionString("S", "", ""), "DSN=S");
  EXPECT_EQ(ConnectionString("S", "u", ""), "DSN=S;UID=u;PWD=;");
  EXPECT_EQ(ConnectionString("S", "", "p"), "DSN=S;PWD=p");
  EXPECT_EQ(ConnectionString("S", "u", "p"), "DSN=S;UID=u;PWD=p");
}

TEST(ConnectionString, LetsNoValueAddAnother) {
  EXPECT_EQ(ConnectionString("S;Database=x", "u;PWD=", "p;Option=2"),
            "DSN={S;Database=x};UID={u;PWD=};PWD={p;Option=2}");
}

}  // namespace
}  // namespace imptable
