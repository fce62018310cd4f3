#include "platform/text/Utf16.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

using namespace std::string_view_literals;

std::string Little(std::string_view bytes) { return Utf8OfUtf16(bytes, ByteOrder::kLittleEndian); }
std::string Big(std::string_view bytes) { return Utf8OfUtf16(bytes, ByteOrder::kBigEndian); }

TEST(Utf16, BecomesUtf8) {
  EXPECT_EQ(Little("a\0\xE9\0\xAC\x20"sv), "a\u00e9\u20ac");
  EXPECT_EQ(Big("\0a\0\xE9\x20\xAC"sv), "a\u00e9\u20ac");
  EXPECT_EQ(Little("\0\0"sv), "\0"sv);
  EXPECT_EQ(Little(""), "");
}

TEST(Utf16, JoinsSurrogates) {
  EXPECT_EQ(Little("\x3D\xD8\x00\xDE."
                   "\0"sv),
            "\U0001f600.");
  EXPECT_EQ(Big("\xDB\xFF\xDF\xFF"), "\U0010ffff");
}

TEST(Utf16, ReplacesHalfAPairOfSurrogates) {
  EXPECT_EQ(Big("\xD8\x3D\0."sv), "\ufffd.");
  EXPECT_EQ(Big("\xDE\0\0."sv), "\ufffd.");
  EXPECT_EQ(Big("\xD8\x3D\xD8\x3D\xDE\0"sv), "\ufffd\U0001f600");
  EXPECT_EQ(Big("\0.\xD8\x3D"sv), ".\ufffd") << "at the end";
}

TEST(Utf16, LeavesOutHalfACharacterAtTheEnd) {
  EXPECT_EQ(Little("a\0b"sv), "a");
  EXPECT_EQ(Big("\0"sv), "");
}

}  // namespace
}  // namespace imptable
