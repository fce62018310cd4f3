#include "platform/testing/PlainEncodings.h"

#include <cstddef>

#include "platform/text/Utf8.h"

namespace imptable {

std::string Utf8TextEncoding::FromUtf8(std::string_view text) const {
  return ReplaceInvalidUtf8(text, "?");
}

std::string Utf8TextEncoding::ToUtf8(std::string_view text) const {
  return ReplaceInvalidUtf8(text, kReplacementCharacter);
}

std::string Latin1TextEncoding::FromUtf8(std::string_view text) const {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    if (length == 1) {
      result += text[0];
    } else if (length == 2 && byte(0) <= 0xC3) {
      result += static_cast<char>(((byte(0) & 0x03) << 6) | (byte(1) & 0x3F));
    } else {
      result += '?';
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return result;
}

std::string Latin1TextEncoding::ToUtf8(std::string_view text) const {
  std::string result;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x80) {
      result += character;
    } else {
      result += static_cast<char>(0xC0 | (byte >> 6));
      result += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return result;
}

}  // namespace imptable
