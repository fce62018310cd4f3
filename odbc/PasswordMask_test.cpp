#include "odbc/PasswordMask.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

std::string Masked(const std::string& password, const std::string& text, bool cut = false) {
  return PasswordMask(password).Masked(text, cut);
}

TEST(PasswordMask, HidesThePasswordWhereverItStands) {
  EXPECT_EQ(Masked("secret", "login of 'sa' with 'secret' failed"),
            "login of 'sa' with '******' failed");
  EXPECT_EQ(Masked("secret", "DSN=x;UID=sa;PWD=secret;"), "DSN=x;UID=sa;PWD=******;");
  EXPECT_EQ(Masked("péché", "(péché)"), "(******)");
  EXPECT_EQ(Masked("secret", "« secret » «secret» “secret”"), "« ****** » «******» “******”");
  EXPECT_EQ(Masked("secret", "\xABsecret\xBB"), "\xAB******\xBB");
  EXPECT_EQ(Masked("a b!", "with a b! or \"a b!\""), "with ****** or \"******\"");
}

TEST(PasswordMask, LeavesOtherTextsAsTheyAre) {
  for (const char* text : {"", "Secret", "secre", "(using password: YES)"}) {
    EXPECT_EQ(Masked("secret", text), text);
  }
  for (const char* password : {"", "  "}) EXPECT_EQ(Masked(password, "a  b PWD=;"), "a  b PWD=;");
  EXPECT_EQ(PasswordMask().Masked("text", true), "text");
}

TEST(PasswordMask, SpoilsNoWordThatThePasswordIsAPartOf) {
  EXPECT_EQ(Masked("cons", "UNIQUE constraint failed"), "UNIQUE constraint failed");
  EXPECT_EQ(Masked("cons", "key client_cons, cons_1, cons1"), "key client_cons, cons_1, cons1");
  EXPECT_EQ(Masked("secret", "secretsecret, xsecrety, ésecret, secreté"),
            "secretsecret, xsecrety, ésecret, secreté");
  EXPECT_EQ(Masked("cons", "UNIQUE con", true), "UNIQUE ******");
  EXPECT_EQ(Masked("cons", "balcon", true), "balcon");
}

TEST(PasswordMask, HidesAShortOneWhereItIsAWordOfItsOwn) {
  EXPECT_EQ(Masked("ab", "PWD=ab;"), "PWD=******;");
  EXPECT_EQ(Masked("ab", "ab"), "******");
  EXPECT_EQ(Masked("ab", "table about labs"), "table about labs");
  EXPECT_EQ(Masked("ab", "éab"), "éab");
}

TEST(PasswordMask, HidesWhatADriverFindsInTheConnectionString) {
  EXPECT_EQ(Masked("half;rest", "wrong password 'half'"), "wrong password '******'");
  EXPECT_EQ(Masked("half;rest", "unknown keyword 'rest'"), "unknown keyword '******'");
  EXPECT_EQ(Masked("half;rest", "unknown keyword 'rest}'"), "unknown keyword '******'");
  EXPECT_EQ(Masked("half;rest", "wrong password '{half'"), "wrong password '******'");
  EXPECT_EQ(Masked("one;two;three", "two three"), "****** ******");
  EXPECT_EQ(Masked("half;rest", "PWD=half;rest"), "PWD=******");
  EXPECT_EQ(Masked("se;cr}et", "got se;cr}et from {se;cr}}et}"), "got ****** from ******");
}

TEST(PasswordMask, HidesTheBeginningOfOneThatIsCutOffWithTheText) {
  EXPECT_EQ(Masked("secret", "connection string PWD=sec", true), "connection string PWD=******");
  EXPECT_EQ(Masked("secret", "connection string PWD=s", true), "connection string PWD=******");
  EXPECT_EQ(Masked("secret", "connection string PWD=sec", false), "connection string PWD=sec");
  EXPECT_EQ(Masked("secret", "sec", true), "******");
}

}  // namespace
}  // namespace imptable
