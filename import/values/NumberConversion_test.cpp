#include "import/values/NumberConversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace imptable {
namespace {

using testing::Optional;

std::string Replaced(std::string_view value, std::string_view separator) {
  std::string out = "left over";
  ReplaceDecimalSeparator(value, separator, out);
  return out;
}

std::string Inserted(std::string_view value, std::size_t decimals, std::string_view separator,
                     bool utf8 = true) {
  std::string out = "left over";
  return InsertDecimalSeparator(value, decimals, separator, utf8, out) ? out : "<too short>";
}

TEST(NumberConversion, ReplacesTheFirstPointOrElseTheFirstComma) {
  struct Case {
    const char *value, *separator, *expected;
  };
  for (const Case& each : {Case{"123.45", ",", "123,45"},
                           {"123.45", ".", "123.45"},
                           {"123,45", ".", "123.45"},
                           {"1,234.56", ",", "1,234,56"},
                           {"1.234,56", ".", "1.234,56"},
                           {"1.2.3", ",", "1,2.3"},
                           {"1,2,3", ".", "1.2,3"},
                           {"12345", ",", "12345"},
                           {".5", ",", ",5"},
                           {"5.", ",", "5,"},
                           {" 1.5 ", ",", " 1,5 "},
                           {"1.5", "::", "1::5"}}) {
    EXPECT_EQ(Replaced(each.value, each.separator), each.expected) << each.value;
  }
}

TEST(NumberConversion, InsertsTheSeparatorBeforeTheImpliedDecimals) {
  EXPECT_EQ(Inserted("12345", 2, "."), "123.45");
  EXPECT_EQ(Inserted("12345", 2, ","), "123,45");
  EXPECT_EQ(Inserted("12345", 5, "."), ".12345");
  EXPECT_EQ(Inserted("-12345", 2, "."), "-123.45");
  EXPECT_EQ(Inserted("12345", 0, "."), "12345");
  EXPECT_EQ(Inserted("12345 ", 2, "."), "1234.5 ") << "blanks are characters of the value";
}

TEST(NumberConversion, RefusesAValueShorterThanItsImpliedDecimals) {
  EXPECT_EQ(Inserted("5", 2, "."), "<too short>");
  EXPECT_EQ(Inserted("12345", 6, "."), "<too short>");
  EXPECT_EQ(Inserted("55", 2, "."), ".55");
}

TEST(NumberConversion, CountsImpliedDecimalsInCharacters) {
  EXPECT_EQ(Inserted("1é€", 2, "."), "1.é€");
  EXPECT_EQ(Inserted("é", 2, "."), "<too short>");
  EXPECT_EQ(Inserted("1\xE9", 1, ".", false), "1.\xE9");
  EXPECT_EQ(Inserted("é", 2, ".", false), ".é");
}

TEST(NumberConversion, ReadsNumbersInTheUsersNotation) {
  EXPECT_THAT(ReadUserNumber("12.5", "."), Optional(12.5));
  EXPECT_THAT(ReadUserNumber("12,5", ","), Optional(12.5));
  EXPECT_THAT(ReadUserNumber("-12,5", ","), Optional(-12.5));
  EXPECT_THAT(ReadUserNumber("+12,5", ","), Optional(12.5));
  EXPECT_THAT(ReadUserNumber("  7  ", ","), Optional(7.0));
  EXPECT_THAT(ReadUserNumber(",5", ","), Optional(0.5));
  EXPECT_THAT(ReadUserNumber("5,", ","), Optional(5.0));
  EXPECT_THAT(ReadUserNumber("1,5e3", ","), Optional(1500.0));
  EXPECT_THAT(ReadUserNumber("1E-2", "."), Optional(0.01));
  EXPECT_THAT(ReadUserNumber("0,1", ","), Optional(0.1));
  EXPECT_THAT(ReadUserNumber("12.50-", "."), Optional(-12.5));
  EXPECT_THAT(ReadUserNumber("-   12,50", ","), Optional(-12.5));
  EXPECT_THAT(ReadUserNumber("1::5", "::"), Optional(1.5));
}

TEST(NumberConversion, ReadsANumberTooSmallForADoubleAsZero) {
  EXPECT_THAT(ReadUserNumber("1e-999", "."), Optional(0.0));
  EXPECT_THAT(ReadUserNumber("-0.5e-400", "."), Optional(0.0));
  EXPECT_THAT(ReadUserNumber("4.9e-324", "."), Optional(4.9e-324));
  EXPECT_THAT(ReadUserNumber(std::string(300, '9') + "e-1000000000000", "."), Optional(0.0));
}

TEST(NumberConversion, RefusesWhatADoubleCannotBeReadFrom) {
  struct Case {
    const char *value, *separator;
  };
  for (const Case& each :
       {Case{"", "."},  {" ", "."},         {"abc", "."},   {"12a", "."},   {"1.5", ","},
        {"1,5", "."},   {"1.234,5", ","},   {"1 000", "."}, {"1.2.3", "."}, {"-", "."},
        {"+", "."},     {"+-1", "."},       {"--1", "."},   {"++1", "."},   {".", "."},
        {"1e", "."},    {"1e999", "."},     {"inf", "."},   {"nan", "."},   {"0x10", "."},
        {"1e309", "."}, {"12\xC2\xA0", "."}}) {
    EXPECT_EQ(ReadUserNumber(each.value, each.separator), std::nullopt) << each.value;
  }
  EXPECT_EQ(ReadUserNumber(std::string_view("1\0", 2), "."), std::nullopt);
  EXPECT_EQ(ReadUserNumber(std::string(300, '0') + "1", "."), std::nullopt);
  EXPECT_EQ(ReadUserNumber(std::string(100'000, '9'), "."), std::nullopt);
}

}  // namespace
}  // namespace imptable
