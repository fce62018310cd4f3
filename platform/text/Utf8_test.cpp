#include "platform/text/Utf8.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(Utf8, KnowsTheLengthOfACharacter) {
  EXPECT_EQ(Utf8Length("abc"), 1u);
  EXPECT_EQ(Utf8Length(std::string_view("\0", 1)), 1u);
  EXPECT_EQ(Utf8Length("\u0080z"), 2u);
  EXPECT_EQ(Utf8Length("\u07ffz"), 2u);
  EXPECT_EQ(Utf8Length("\u0800z"), 3u);
  EXPECT_EQ(Utf8Length("\ud7ffz"), 3u);
  EXPECT_EQ(Utf8Length("\uffffz"), 3u);
  EXPECT_EQ(Utf8Length("\U00010000z"), 4u);
  EXPECT_EQ(Utf8Length("\U0010ffffz"), 4u);
}

TEST(Utf8, RefusesWhatIsNoCharacter) {
  EXPECT_EQ(Utf8Length(""), 0u);
  EXPECT_EQ(Utf8Length("\x80"), 0u) << "continuation byte";
  EXPECT_EQ(Utf8Length("\xe9t\xe9"), 0u) << "another code page";
  EXPECT_EQ(Utf8Length("\xc3"), 0u) << "cut";
  EXPECT_EQ(Utf8Length("\xe2\x82"), 0u) << "cut";
  EXPECT_EQ(Utf8Length("\xf0\x9f\x98"), 0u) << "cut";
  EXPECT_EQ(Utf8Length("\xc1\xbf"), 0u) << "overlong";
  EXPECT_EQ(Utf8Length("\xe0\x9f\xbf"), 0u) << "overlong";
  EXPECT_EQ(Utf8Length("\xf0\x8f\xbf\xbf"), 0u) << "overlong";
  EXPECT_EQ(Utf8Length("\xed\xa0\x80"), 0u) << "surrogate";
  EXPECT_EQ(Utf8Length("\xf4\x90\x80\x80"), 0u) << "above the last one";
  EXPECT_EQ(Utf8Length("\xf5\x80\x80\x80"), 0u) << "above the last one";
}

TEST(Utf8, KnowsTheNumberOfACharacterAndWritesItBack) {
  struct Case {
    std::string_view bytes;
    char32_t number;
  };
  for (const Case& each : {Case{"a", 0x61},
                           {"\u0080", 0x80},
                           {"\u07ff", 0x7FF},
                           {"\u0800", 0x800},
                           {"\uffff", 0xFFFF},
                           {"\U00010000", 0x10000},
                           {"\U0010ffff", 0x10FFFF}}) {
    EXPECT_EQ(DecodeUtf8(each.bytes), each.number);
    std::string written;
    AppendUtf8(written, each.number);
    EXPECT_EQ(written, each.bytes);
  }
}

TEST(Utf8, ReplacesEachInvalidByteAndNothingElse) {
  EXPECT_EQ(ReplaceInvalidUtf8("", "?"), "");
  EXPECT_EQ(ReplaceInvalidUtf8("\u00e9\xe2\x82|\u20ac\xff", "?"), "\u00e9??|\u20ac?");
  EXPECT_EQ(ReplaceInvalidUtf8("\xff!", kReplacementCharacter), "\ufffd!");
}

}  // namespace
}  // namespace imptable
