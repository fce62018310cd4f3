#ifndef PLATFORM_TEXT_UTF8_H_
#define PLATFORM_TEXT_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace imptable {

inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD

/// @return the number of bytes of the character that `text` starts with, 1 to 4. 0 when `text` is
/// empty or starts with a byte that is no valid UTF-8; overlong forms, surrogates and values above
/// U+10FFFF aren't valid.
constexpr std::size_t Utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;
  for (std::size_t at = 1; at < length; ++at) {
    if ((byte(at) & 0xC0) != 0x80) return 0;
  }
  const unsigned second = byte(1);
  const bool forbidden = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                         (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return forbidden ? 0 : length;
}

/// @param character  the bytes of one valid character.
constexpr char32_t DecodeUtf8(std::string_view character) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(character[at]); };
  if (character.size() == 1) return byte(0);
  char32_t result = byte(0) & (0x7FU >> character.size());
  for (std::size_t at = 1; at < character.size(); ++at) result = result << 6 | (byte(at) & 0x3FU);
  return result;
}

inline void AppendUtf8(std::string& text, char32_t character) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    add(character);
    return;
  }
  if (character < 0x800) {
    add(0xC0U | character >> 6);
  } else {
    if (character < 0x10000) {
      add(0xE0U | character >> 12);
    } else {
      add(0xF0U | character >> 18);
      add(0x80U | (character >> 12 & 0x3FU));
    }
    add(0x80U | (character >> 6 & 0x3FU));
  }
  add(0x80U | (character & 0x3FU));
}

/// `text` with each byte that is no valid UTF-8 replaced.
inline std::string ReplaceInvalidUtf8(std::string_view text, std::string_view replacement) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    result += length == 0 ? replacement : text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return result;
}

}  // namespace imptable

#endif  // PLATFORM_TEXT_UTF8_H_
