#include "platform/testing/PlainEncodings.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(Utf8TextEncoding, LeavesValidTextAsItIs) {
  const Utf8TextEncoding encoding;
  EXPECT_TRUE(encoding.IsUtf8());
  EXPECT_EQ(encoding.FromUtf8("a\u00e9\u20ac"), "a\u00e9\u20ac");
  EXPECT_EQ(encoding.ToUtf8("a\u00e9\u20ac"), "a\u00e9\u20ac");
}

TEST(Utf8TextEncoding, ReplacesEachInvalidByte) {
  const Utf8TextEncoding encoding;
  EXPECT_EQ(encoding.FromUtf8("a\xe9\xff z"), "a?? z");
  EXPECT_EQ(encoding.ToUtf8("a\xe9\xff z"), "a\ufffd\ufffd z");
}

TEST(Latin1TextEncoding, HasOneByteACharacter) {
  const Latin1TextEncoding encoding;
  EXPECT_FALSE(encoding.IsUtf8());
  EXPECT_EQ(encoding.FromUtf8("a\u00a0\u00e9\u00ff"), "a\xa0\xe9\xff");
  EXPECT_EQ(encoding.ToUtf8("a\xa0\xe9\xff"), "a\u00a0\u00e9\u00ff");
}

TEST(Latin1TextEncoding, ReplacesWhatItLacks) {
  const Latin1TextEncoding encoding;
  EXPECT_EQ(encoding.FromUtf8("\u20ac\u0153\xe9 \U0001f600."), "??? ?.");
}

}  // namespace
}  // namespace imptable
