#include "platform/files/Sha256.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

std::string DigestOf(std::string_view bytes) {
  Sha256 digest;
  digest.Add(bytes);
  return digest.HexDigest();
}

TEST(Sha256, GivesThePublishedDigests) {
  EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(DigestOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmno"
                     "ijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
            "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
  EXPECT_EQ(DigestOf(std::string(1'000'000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, IsTheSameHoweverTheBytesComeInPieces) {
  std::string bytes;
  for (int at = 0; at < 300; ++at) bytes += static_cast<char>(at);
  for (std::size_t piece = 1; piece < 140; ++piece) {
    Sha256 digest;
    for (std::size_t at = 0; at < bytes.size(); at += piece) digest.Add(bytes.substr(at, piece));
    EXPECT_EQ(digest.HexDigest(), DigestOf(bytes)) << piece;
  }
}

}  // namespace
}  // namespace imptable
