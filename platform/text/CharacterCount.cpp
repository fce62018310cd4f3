#include "platform/text/CharacterCount.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/text/Utf8.h"

namespace imptable {
namespace {

/// A byte that starts no valid character counts as a character.
std::size_t BytesOfFirstCharacter(std::string_view text) {
  return std::max<std::size_t>(Utf8Length(text), 1);
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
