#include "platform/files/Sha256.h"

#include <algorithm>
#include <bit>

namespace imptable {
namespace {

constexpr std::array<std::uint32_t, 64> kConstants{
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

constexpr std::size_t kLengthBytes = 8;

std::uint32_t BigEndian(const char* bytes) {
  std::uint32_t word = 0;
  for (int at = 0; at < 4; ++at) word = word << 8U | static_cast<unsigned char>(bytes[at]);
  return word;
}

}  // namespace

void Sha256::TakeBlock(const char* block) {
  std::array<std::uint32_t, 64> words{};
  for (std::size_t at = 0; at < 16; ++at) words[at] = BigEndian(block + 4 * at);
  for (std::size_t at = 16; at < words.size(); ++at) {
    const std::uint32_t early = words[at - 15];
    const std::uint32_t late = words[at - 2];
    words[at] = words[at - 16] + words[at - 7] +
                (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3U) +
                (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10U);
  }
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t at = 0; at < words.size(); ++at) {
    const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                ((e & f) ^ (~e & g)) + kConstants[at] + words[at];
    const std::uint32_t second =
        (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + first;
    d = c;
    c = b;
    b = a;
    a = first + second;
  }
  const std::array<std::uint32_t, 8> more{a, b, c, d, e, f, g, h};
  for (std::size_t at = 0; at < state_.size(); ++at) state_[at] += more[at];
}

void Sha256::Add(std::string_view bytes) {
  bytes_ += bytes.size();
  if (!pending_.empty()) {
    const std::size_t missing = std::min(kBlockBytes - pending_.size(), bytes.size());
    pending_ += bytes.substr(0, missing);
    bytes.remove_prefix(missing);
    if (pending_.size() < kBlockBytes) return;
    TakeBlock(pending_.data());
    pending_.clear();
  }
  for (; bytes.size() >= kBlockBytes; bytes.remove_prefix(kBlockBytes)) TakeBlock(bytes.data());
  pending_ = bytes;
}

std::string Sha256::HexDigest() {
  const std::uint64_t bits = 8 * bytes_;
  std::string padding(1, '\x80');
  while ((bytes_ + padding.size() + kLengthBytes) % kBlockBytes != 0) padding += '\0';
  for (int shift = 56; shift >= 0; shift -= 8) {
    padding += static_cast<char>(bits >> static_cast<unsigned>(shift) & 0xFFU);
  }
  Add(padding);
  std::string digest;
  for (const std::uint32_t word : state_) {
    for (int shift = 28; shift >= 0; shift -= 4) {
      digest += "0123456789abcdef"[word >> static_cast<unsigned>(shift) & 0xFU];
    }
  }
  return digest;
}

}  // namespace imptable
