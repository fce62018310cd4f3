#ifndef PLATFORM_UTF8_H_
#define PLATFORM_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace imptable {

inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";  // U+FFFD

/// @return the number of bytes of the character that `text` starts with, 1 to 4; 0 when `text` is
/// empty or starts with a byte that is no valid UTF-8 (overlong forms, surrogates and values above
/// U+10FFFF aren't).
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

#endif  // PLATFORM_UTF8_H_
