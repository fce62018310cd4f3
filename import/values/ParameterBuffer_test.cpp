#include "import/values/ParameterBuffer.h"

#include <gtest/gtest.h>

#include <string>

namespace imptable {
namespace {

std::string Stored(std::string_view value, bool utf8 = true) {
  ParameterBuffer buffer;
  buffer.SetText(value, utf8);
  if (buffer.text_indicator == SQL_NULL_DATA) return "<null>";
  return {buffer.text.data(), static_cast<std::size_t>(buffer.text_indicator)};
}

TEST(ParameterBuffer, CarriesATextWithItsLength) {
  EXPECT_EQ(Stored("abc"), "abc");
  EXPECT_EQ(Stored(std::string_view("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(Stored("  "), "  ");
}

TEST(ParameterBuffer, TakesAnEmptyTextForNull) { EXPECT_EQ(Stored(""), "<null>"); }

TEST(ParameterBuffer, CutsALongTextAtFiveHundredBytes) {
  EXPECT_EQ(Stored(std::string(499, 'x')), std::string(499, 'x'));
  EXPECT_EQ(Stored(std::string(500, 'x')), std::string(500, 'x'));
  EXPECT_EQ(Stored(std::string(501, 'x')), std::string(500, 'x'));
  EXPECT_EQ(Stored(std::string(100'000, 'x')), std::string(500, 'x'));
}

TEST(ParameterBuffer, NeverCutsWithinACharacter) {
  for (const std::string character : {"é", "€", "𝄞"}) {
    for (std::size_t before = 500 - character.size() + 1; before < 500; ++before) {
      const std::string fits(before, 'x');
      EXPECT_EQ(Stored(fits + character + "y"), fits) << character << " after " << before;
    }
    const std::string fits(500 - character.size(), 'x');
    EXPECT_EQ(Stored(fits + character + "y"), fits + character) << character;
  }
}

TEST(ParameterBuffer, CutsBytesThatAreNoUtf8AnywhereAsEachIsACharacter) {
  EXPECT_EQ(Stored(std::string(600, '\x80')), std::string(500, '\x80'));
  EXPECT_EQ(Stored(std::string(500, 'x') + '\x80'), std::string(500, 'x'));
  EXPECT_EQ(Stored(std::string(499, 'x') + "\xE9\x80"), std::string(499, 'x') + '\xE9')
      << "Latin-1 text";
  EXPECT_EQ(Stored(std::string(498, 'x') + "\xC3\xA9\xA9"), std::string(498, 'x') + "é");
}

TEST(ParameterBuffer, CutsBytesInASingleByteCodePage) {
  EXPECT_EQ(Stored(std::string(499, 'x') + "é", false), std::string(499, 'x') + '\xC3');
}

TEST(ParameterBuffer, GivesNumbersAndDatesTheirOwnIndicators) {
  ParameterBuffer buffer;
  EXPECT_EQ(buffer.number_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.date_indicator, SQL_NULL_DATA);
  buffer.SetNumber(1.5);
  EXPECT_NE(buffer.number_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.date_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.number, 1.5);
  SQL_TIMESTAMP_STRUCT date{};
  date.year = 2006;
  buffer.SetDate(date);
  EXPECT_NE(buffer.date_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.text_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.date.year, 2006);
}

TEST(ParameterBuffer, ForgetsEveryValueWithNull) {
  ParameterBuffer buffer;
  buffer.SetText("a", true);
  buffer.SetNumber(1);
  buffer.SetDate({});
  buffer.SetNull();
  EXPECT_EQ(buffer.text_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.number_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffer.date_indicator, SQL_NULL_DATA);
}

}  // namespace
}  // namespace imptable
