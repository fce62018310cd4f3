#include "platform/text/TextEncoding_linux.h"

#include <gtest/gtest.h>

#include "platform/testing/CompiledLocale_linux.h"
#include "platform/testing/ScopedVariable.h"
#include "platform/text/TextEncoding.h"

namespace imptable {
namespace {

std::string Repeat(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

TEST(TextEncoding, LeavesValidUtf8AsItIs) {
  const auto encoding = MakeTextEncoding("UTF-8");
  EXPECT_TRUE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("a\u00e9\u20ac\U0001f600"), "a\u00e9\u20ac\U0001f600");
  EXPECT_EQ(encoding->ToUtf8("a\u00e9\u20ac\U0001f600"), "a\u00e9\u20ac\U0001f600");
}

TEST(TextEncoding, ReplacesEachByteThatIsNoValidUtf8) {
  const auto encoding = MakeTextEncoding("UTF-8");
  EXPECT_EQ(encoding->FromUtf8("caf\xe9\xff."), "caf??.");
  EXPECT_EQ(encoding->ToUtf8("caf\xe9\xff."), "caf\ufffd\ufffd.");
}

TEST(TextEncoding, TakesTheCodeSetOfTheCLocaleForUtf8) {
  const auto encoding = MakeTextEncoding("ANSI_X3.4-1968");
  EXPECT_TRUE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("\u00e9"), "\u00e9");
}

TEST(TextEncoding, TakesAnUnknownCodeSetForUtf8) {
  const auto encoding = MakeTextEncoding("no such code set");
  EXPECT_TRUE(encoding->IsUtf8());
  EXPECT_EQ(encoding->ToUtf8("\u00e9"), "\u00e9");
}

TEST(TextEncoding, ConvertsASingleByteCodeSet) {
  const auto encoding = MakeTextEncoding("ISO-8859-1");
  EXPECT_FALSE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("D\u00e9j\u00e0 \u00fc"), "D\xe9j\xe0 \xfc");
  EXPECT_EQ(encoding->ToUtf8("D\xe9j\xe0 \xfc"), "D\u00e9j\u00e0 \u00fc");
  EXPECT_EQ(MakeTextEncoding("ISO-8859-15")->FromUtf8("\u20ac"), "\xa4");
}

TEST(TextEncoding, ReplacesACharacterThatTheCodeSetLacksByOneQuestionMark) {
  const auto encoding = MakeTextEncoding("ISO-8859-1");
  EXPECT_EQ(encoding->FromUtf8("1\u20ac=\U0001f600\u0153."), "1?=??.");
  EXPECT_EQ(encoding->FromUtf8("a\xe9z\xe2\x82"), "a?z??");
}

TEST(TextEncoding, ReplacesAByteThatTheCodeSetLacks) {
  EXPECT_EQ(MakeTextEncoding("CP1252")->ToUtf8("\x80 \x81."), "\u20ac \ufffd.");
}

TEST(TextEncoding, ConvertsACodeSetOfSeveralBytesACharacter) {
  const auto encoding = MakeTextEncoding("EUC-JP");
  EXPECT_EQ(encoding->FromUtf8("\u65e5\u672c"), "\xc6\xfc\xcb\xdc");
  EXPECT_EQ(encoding->ToUtf8("\xc6\xfc\xcb\xdc"), "\u65e5\u672c");
  EXPECT_EQ(encoding->ToUtf8("\xc6\xfc\xcb"), "\u65e5\ufffd") << "cut";
}

TEST(TextEncoding, KeepsTheOrderOfACodeSetThatHoldsCharactersBack) {
  const auto encoding = MakeTextEncoding("CP1258");  // "a" may wait for a combining accent
  EXPECT_EQ(encoding->ToUtf8("ba"), "ba");
  EXPECT_EQ(encoding->ToUtf8("a\xd2"), "\u1ea3");
  EXPECT_EQ(encoding->ToUtf8("a"), "a") << "nothing is left over from before";
}

TEST(TextEncoding, ConvertsTextOfAnyLength) {
  const auto encoding = MakeTextEncoding("ISO-8859-1");
  EXPECT_EQ(encoding->FromUtf8(""), "");
  EXPECT_EQ(encoding->ToUtf8({}), "");
  for (const int count : {127, 128, 255, 256, 257, 10000}) {
    EXPECT_EQ(encoding->FromUtf8(Repeat("\u00e9", count)), Repeat("\xe9", count)) << count;
    EXPECT_EQ(encoding->ToUtf8(Repeat("\xe9", count)), Repeat("\u00e9", count)) << count;
  }
}

TEST(TextEncoding, OfTheSystemFollowsTheEnvironment) {
  const CompiledLocale compiled;
  const ScopedVariable locale("LC_ALL", compiled.name());
  const auto encoding = SystemTextEncoding();
  EXPECT_FALSE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("\u00e9"), "\xe9");
}

TEST(TextEncoding, OfTheSystemIsUtf8InTheCLocaleAndInOneThatTheSystemLacks) {
  for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_XX.none"}) {
    const ScopedVariable locale("LC_ALL", name);
    EXPECT_TRUE(SystemTextEncoding()->IsUtf8()) << name;
  }
}

}  // namespace
}  // namespace imptable
