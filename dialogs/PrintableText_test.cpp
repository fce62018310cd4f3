#include "dialogs/PrintableText.h"

#include <gmock/gmock.h>

#include "platform/testing/PlainEncodings.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

std::string Utf8(std::string_view text, std::size_t most = 100) {
  return PrintableText(Utf8TextEncoding(), text, most);
}

std::string Latin1(std::string_view text, std::size_t most = 100) {
  return PrintableText(Latin1TextEncoding(), text, most);
}

TEST(PrintableText, LeavesTextAsItIs) {
  EXPECT_EQ(Utf8(""), "");
  EXPECT_EQ(Utf8("12;Été à Paris;3,5 €;𝄞"), "12;Été à Paris;3,5 €;𝄞");
  EXPECT_EQ(Latin1("\xC9t\xE9"), "\xC9t\xE9");
}

TEST(PrintableText, ShowsAPointForEachControlCharacter) {
  using std::string_view_literals::operator""sv;
  EXPECT_EQ(Utf8("a\tb\x1B[31mc\0d\r\n\x7F"sv), "a.b.[31mc.d...");
  EXPECT_EQ(Utf8("a\u0085b\u009Fc"), "a.b.c");
  EXPECT_EQ(Latin1("a\x85\x9F\x7F"), "a...");
}

TEST(PrintableText, ShowsAPointForWhatWouldTurnOrSplitTheLine) {
  EXPECT_EQ(Utf8("a\u202Eb\u2028c\u200Bd\uFEFFe\u2066f"), "a.b.c.d.e.f");
}

TEST(PrintableText, ShowsOneCharacterForEachByteThatIsNone) {
  const std::string shown = Utf8("a\xFF\xC3;\xE2\x82;b");
  EXPECT_EQ(shown, "a\uFFFD\uFFFD;\uFFFD\uFFFD;b");
}

TEST(PrintableText, KeepsThePlaceOfEveryCharacter) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text = "ab" + std::string(1, static_cast<char>(byte)) + "cd";
    EXPECT_EQ(CountCharacters(Utf8(text), true), 5U) << byte;
    EXPECT_EQ(Latin1(text).size(), 5U) << byte;
    EXPECT_TRUE(Utf8(text).ends_with("cd")) << byte;
  }
}

TEST(PrintableText, IsCutByCharactersAndSaysSo) {
  EXPECT_EQ(Utf8("ééé", 3), "ééé");
  EXPECT_EQ(Utf8("éééé", 3), "ééé...");
  EXPECT_EQ(Latin1("\xE9\xE9", 1), "\xE9...");
  EXPECT_EQ(Utf8("a", 0), "...");
}

}  // namespace
}  // namespace imptable
