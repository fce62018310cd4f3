#include "core/NumberText.h"

#include <gtest/gtest.h>

#include <string>

namespace imptable {
namespace {

/// The number as sign, whole, ".", fraction, "e", exponent; "<none>" for a text that is no number.
std::string Parsed(std::string_view text, std::string_view separator = ".") {
  const auto number = ParseNumberText(text, separator);
  if (!number) return "<none>";
  return (number->negative ? "-" : "") + std::string(number->whole) + '.' +
         std::string(number->fraction) + 'e' + std::to_string(number->exponent);
}

TEST(NumberText, HasAWholePartAFractionAndAnExponent) {
  EXPECT_EQ(Parsed("12"), "12.e0");
  EXPECT_EQ(Parsed("012.50"), "012.50e0");
  EXPECT_EQ(Parsed("12."), "12.e0");
  EXPECT_EQ(Parsed(".5"), ".5e0");
  EXPECT_EQ(Parsed("1.5e3"), "1.5e3");
  EXPECT_EQ(Parsed("1E+3"), "1.e3");
  EXPECT_EQ(Parsed(".5e-03"), ".5e-3");
}

TEST(NumberText, PartsAtTheSeparatorThatIsAskedFor) {
  EXPECT_EQ(Parsed("1,5", ","), "1.5e0");
  EXPECT_EQ(Parsed("1::5", "::"), "1.5e0");
  EXPECT_EQ(Parsed("1.5", ","), "<none>");
  EXPECT_EQ(Parsed("15", ""), "15.e0");
  EXPECT_EQ(Parsed("1.5", ""), "<none>");
}

TEST(NumberText, MayHaveWhiteSpaceAroundIt) {
  EXPECT_EQ(Parsed("  12 "), "12.e0");
  EXPECT_EQ(Parsed("\t12\r\n"), "12.e0");
  EXPECT_EQ(Parsed("1 2"), "<none>");
  EXPECT_EQ(Parsed("1 e3"), "<none>");
  EXPECT_EQ(Parsed("1. 5"), "<none>");
}

TEST(NumberText, MayHaveASignBeforeOrBehindIt) {
  EXPECT_EQ(Parsed("+7"), "7.e0");
  EXPECT_EQ(Parsed("-7"), "-7.e0");
  EXPECT_EQ(Parsed(" -  7 "), "-7.e0");
  EXPECT_EQ(Parsed("7-"), "-7.e0");
  EXPECT_EQ(Parsed("7.5e3 - "), "-7.5e3");
  EXPECT_EQ(Parsed("7+"), "7.e0");
}

TEST(NumberText, MayBeInParenthesesForAMinus) {
  EXPECT_EQ(Parsed("(7)"), "-7.e0");
  EXPECT_EQ(Parsed(" ( 7.5 ) "), "-7.5e0");
  EXPECT_EQ(Parsed("(7"), "<none>");
  EXPECT_EQ(Parsed("7)"), "<none>");
  EXPECT_EQ(Parsed("((7))"), "<none>");
  EXPECT_EQ(Parsed("()"), "<none>");
}

TEST(NumberText, HasOneSignOnly) {
  for (const char* text : {"--7", "+-7", "-7-", "7--", "-(7)", "(-7)", "(7)-", "(7-)"}) {
    EXPECT_EQ(Parsed(text), "<none>") << text;
  }
}

TEST(NumberText, IsNoTextOfAnotherKind) {
  for (const char* text : {"", " ", "+", "-", ".", "e5", "1e", "1e+", "1e1.5", "1.5.1", "1,000",
                           "$5", "&H10", "0x10", "inf", "nan", "True", "12a", "12%"}) {
    EXPECT_EQ(Parsed(text), "<none>") << text;
  }
  EXPECT_EQ(Parsed(std::string_view("1\0", 2)), "<none>");
}

TEST(NumberText, KeepsAnExponentBeyondAnyUseLarge) {
  EXPECT_EQ(Parsed("1e999999999999999999999"), "1.e1000000");
  EXPECT_EQ(Parsed("1e-999999999999999999999"), "1.e-1000000");
}

}  // namespace
}  // namespace imptable
