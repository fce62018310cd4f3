#include "platform/text/TextEncoding_win32.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

TEST(TextEncodingOfWindows, LeavesValidUtf8AsItIsAndReplacesEachOtherByte) {
  const auto encoding = MakeTextEncoding(65001);
  EXPECT_TRUE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("a\u00e9\u20ac\U0001f600"), "a\u00e9\u20ac\U0001f600");
  EXPECT_EQ(encoding->ToUtf8("a\u00e9\u20ac\U0001f600"), "a\u00e9\u20ac\U0001f600");
  EXPECT_EQ(encoding->FromUtf8("caf\xe9\xff."), "caf??.");
  EXPECT_EQ(encoding->ToUtf8("caf\xe9\xff."), "caf\ufffd\ufffd.");
}

TEST(TextEncodingOfWindows, ConvertsASingleByteCodePage) {
  const auto encoding = MakeTextEncoding(1252);
  EXPECT_FALSE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("D\u00e9j\u00e0 \u20ac\u0153"), "D\xe9j\xe0 \x80\x9c");
  EXPECT_EQ(encoding->ToUtf8("D\xe9j\xe0 \x80\x9c"), "D\u00e9j\u00e0 \u20ac\u0153");
  EXPECT_EQ(encoding->FromUtf8(""), "");
  EXPECT_EQ(encoding->ToUtf8({}), "");
  EXPECT_EQ(encoding->FromUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(TextEncodingOfWindows, GivesEachByteOfASingleByteCodePageBack) {
  const auto encoding = MakeTextEncoding(1252);
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(encoding->FromUtf8(encoding->ToUtf8(text)), text) << byte;
  }
}

TEST(TextEncodingOfWindows, ReplacesACharacterThatTheCodePageLacksByOneQuestionMark) {
  const auto encoding = MakeTextEncoding(1252);
  EXPECT_EQ(encoding->FromUtf8("1\u65e5=\U0001f600\u0101."), "1?=??.") << "nor by a similar one";
  EXPECT_EQ(encoding->FromUtf8("a\xe9z\xe2\x82"), "a?z??");
}

TEST(TextEncodingOfWindows, ConvertsACodePageOfTwoBytesACharacter) {
  const auto encoding = MakeTextEncoding(932);
  EXPECT_FALSE(encoding->IsUtf8());
  EXPECT_EQ(encoding->FromUtf8("a\u65e5\u672c\uff71"), "a\x93\xfa\x96\x7b\xb1");
  EXPECT_EQ(encoding->ToUtf8("a\x93\xfa\x96\x7b\xb1"), "a\u65e5\u672c\uff71");
  EXPECT_EQ(encoding->ToUtf8("\x93\xfa\x96"), "\u65e5\ufffd") << "cut";
}

TEST(TextEncodingOfWindows, TakesACodePageThatTheSystemLacksForUtf8) {
  EXPECT_TRUE(MakeTextEncoding(4711)->IsUtf8());
}

TEST(TextEncodingOfWindows, OfTheSystemIsTheUsersCodePage) {
  const auto encoding = SystemTextEncoding();
  EXPECT_EQ(encoding->IsUtf8(), GetACP() == CP_UTF8);
  EXPECT_EQ(encoding->FromUtf8("\u00e9"), GetACP() == CP_UTF8 ? "\u00e9" : "\xe9");
}

}  // namespace
}  // namespace imptable
