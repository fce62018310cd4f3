#include "platform/text/CharacterCount.h"

#include <gtest/gtest.h>

#include <string>

namespace imptable {
namespace {

TEST(CharacterCount, KnowsAsciiAtEveryPositionOfALongText) {
  EXPECT_TRUE(IsAscii(""));
  const std::string ascii(37, '\x7F');
  EXPECT_TRUE(IsAscii(ascii));
  EXPECT_TRUE(IsAscii(std::string_view("a\0b", 3)));
  for (std::size_t at = 0; at < ascii.size(); ++at) {
    std::string text = ascii;
    text[at] = '\x80';
    EXPECT_FALSE(IsAscii(text)) << at;
  }
}

TEST(CharacterCount, CountsCodePointsInUtf8AndBytesElsewhere) {
  EXPECT_EQ(CountCharacters("", true), 0U);
  EXPECT_EQ(CountCharacters("abc", true), 3U);
  EXPECT_EQ(CountCharacters("aé€𝄞", true), 4U);
  EXPECT_EQ(CountCharacters("aé€𝄞", false), 10U);
}

TEST(CharacterCount, CountsAByteThatIsNoUtf8AsOneCharacter) {
  EXPECT_EQ(CountCharacters("\xE9t\xE9", true), 3U) << "Latin-1 text";
  EXPECT_EQ(CountCharacters("\x80\x80", true), 2U) << "continuation bytes alone";
  EXPECT_EQ(CountCharacters("\xE2\x82", true), 2U) << "cut short";
  EXPECT_EQ(CountCharacters("\xC0\xAF", true), 2U) << "overlong";
  EXPECT_EQ(CountCharacters("\xED\xA0\x80", true), 3U) << "a surrogate";
  EXPECT_EQ(CountCharacters("\xF4\x90\x80\x80", true), 4U) << "beyond the last code point";
}

TEST(CharacterCount, MeasuresTheFirstCharactersInBytes) {
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 0, true), 0U);
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 1, true), 1U);
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 2, true), 3U);
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 3, true), 6U);
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 4, true), 10U);
  EXPECT_EQ(BytesOfCharacters("aé€𝄞z", 4, false), 4U);
  EXPECT_EQ(BytesOfCharacters("\xE9t\xE9", 2, true), 2U);
}

TEST(CharacterCount, GivesTheWholeTextWhenItHasFewerCharacters) {
  EXPECT_EQ(BytesOfCharacters("é", 7, true), 2U);
  EXPECT_EQ(BytesOfCharacters("é", 7, false), 2U);
  EXPECT_EQ(BytesOfCharacters("", 7, true), 0U);
}

}  // namespace
}  // namespace imptable
