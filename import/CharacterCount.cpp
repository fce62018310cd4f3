#include "import/CharacterCount.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace imptable {
namespace {

/// The well-formed byte ranges of the Unicode Standard, table 3-7: the lead byte, its number of
/// bytes, and the range of the second byte (the others are 80..BF).
struct LeadByte {
  unsigned char first, last, bytes, second_from, second_to;
};
constexpr LeadByte kLeadBytes[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

std::size_t BytesOfFirstCharacter(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (const LeadByte& lead : kLeadBytes) {
    if (byte(0) < lead.first || byte(0) > lead.last) continue;
    if (text.size() < lead.bytes || byte(1) < lead.second_from || byte(1) > lead.second_to)
      return 1;
    for (std::size_t i = 2; i < lead.bytes; ++i) {
      if (byte(i) < 0x80 || byte(i) > 0xBF) return 1;
    }
    return lead.bytes;
  }
  return 1;
}

}  // namespace

bool IsAscii(std::string_view text) {
  std::uint64_t seen = 0;
  std::size_t i = 0;
  for (; i + sizeof seen <= text.size(); i += sizeof seen) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text.data() + i, sizeof bytes);
    seen |= bytes;
  }
  for (; i < text.size(); ++i) seen |= static_cast<unsigned char>(text[i]);
  return (seen & 0x8080808080808080U) == 0;
}

std::size_t BytesOfCharacters(std::string_view text, std::size_t characters, bool utf8) {
  if (!utf8) return std::min(characters, text.size());
  std::size_t at = 0;
  for (; characters > 0 && at < text.size(); --characters) {
    at += BytesOfFirstCharacter(text.substr(at));
  }
  return at;
}

std::size_t CountCharacters(std::string_view text, bool utf8) {
  if (!utf8) return text.size();
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) {
    at += BytesOfFirstCharacter(text.substr(at));
  }
  return count;
}

}  // namespace imptable
