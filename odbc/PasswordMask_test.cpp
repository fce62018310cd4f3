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
  EXPECT_EQ(Masked("secret", "secretsecret, xsecrety"), "******, x******y");
  EXPECT_EQ(Masked("aaaa", "aaaaa"), "******");
  EXPECT_EQ(Masked("péché", "(péché)"), "(******)");
}

TEST(PasswordMask, LeavesOtherTextsAsTheyAre) {
  for (const char* text : {"", "Secret", "secre", "(using password: YES)"}) {
    EXPECT_EQ(Masked("secret", text), text);
  }
  for (const char* password : {"", "  "}) EXPECT_EQ(Masked(password, "a  b PWD=;"), "a  b PWD=;");
  EXPECT_EQ(PasswordMask().Masked("text", true), "text");
}

TEST(PasswordMask, HidesAShortOneWhereItIsAWordOfItsOwn) {
  EXPECT_EQ(Masked("ab", "PWD=ab;"), "PWD=******;");
  EXPECT_EQ(Masked("ab", "ab"), "******");
  EXPECT_EQ(Masked("ab", "table about labs"), "table about labs");
  EXPECT_EQ(Masked("ab", "éab"), "éab");
}

TEST(PasswordMask, HidesWhatADriverFindsInTheConnectionString) {
  EXPECT_EQ(Masked("half;rest", "wrong password 'half'"), "wrong password '******'");
  EXPECT_EQ(Masked("half;rest", "PWD=half;rest"), "PWD=******");
  EXPECT_EQ(Masked("{se;cr}}et}", "got se;cr}et from {se;cr}}et}"), "got ****** from ******");
}

TEST(PasswordMask, HidesTheBeginningOfOneThatIsCutOffWithTheText) {
  EXPECT_EQ(Masked("secret", "connection string PWD=sec", true), "connection string PWD=******");
  EXPECT_EQ(Masked("secret", "connection string PWD=s", true), "connection string PWD=******");
  EXPECT_EQ(Masked("secret", "connection string PWD=sec", false), "connection string PWD=sec");
  EXPECT_EQ(Masked("secret", "sec", true), "******");
}

}  // namespace
}  // namespace imptable
