#include "host/registry/RegistryExportText.h"

#include <array>
#include <cstddef>
#include <optional>

namespace imptable {
namespace {

void AppendUtf8(std::string& text, char32_t character) {
  const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto add_tail = [&](int shift) { add(0x80U | (character >> shift & 0x3FU)); };
  if (character < 0x80) {
    add(character);
  } else if (character < 0x800) {
    add(0xC0U | character >> 6);
    add_tail(0);
  } else if (character < 0x10000) {
    add(0xE0U | character >> 12);
    add_tail(6);
    add_tail(0);
  } else {
    add(0xF0U | character >> 18);
    add_tail(12);
    add_tail(6);
    add_tail(0);
  }
}

/// Takes the character that `text` starts with off it; nullopt, and nothing taken, when it starts
/// with no valid UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(0);
  std::size_t length = 1;
  if (lead >= 0x80) {
    if (lead < 0xC2 || lead > 0xF4) return std::nullopt;
    length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  }
  if (text.size() < length) return std::nullopt;
  char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return std::nullopt;
    character = character << 6 | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF ||
      (character >= 0xD800 && character <= 0xDFFF)) {
    return std::nullopt;
  }
  text.remove_prefix(length);
  return character;
}

}  // namespace

ConvertedText Utf8FromUtf16(std::string_view bytes) {
  ConvertedText converted;
  converted.text.reserve(bytes.size() / 2);
  const auto unit = [&](std::size_t at) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[at]) |
                                 static_cast<unsigned char>(bytes[at + 1]) << 8);
  };
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    if (bytes.size() - at < 2) return {converted.text, false};
    char32_t character = unit(at);
    if (character >= 0xD800 && character <= 0xDFFF) {
      const bool paired = character < 0xDC00 && bytes.size() - at >= 4 && unit(at + 2) >= 0xDC00 &&
                          unit(at + 2) <= 0xDFFF;
      if (!paired) return {converted.text, false};
      character = 0x10000 + ((character - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
      at += 2;
    }
    AppendUtf8(converted.text, character);
  }
  return converted;
}

std::string Utf16FromUtf8(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  const auto add = [&](char32_t unit) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8);
  };
  while (!text.empty()) {
    const std::optional<char32_t> character = TakeCharacter(text);
    if (!character) {
      add(0xFFFD);
      text.remove_prefix(1);
    } else if (*character < 0x10000) {
      add(*character);
    } else {
      add(0xD800 + ((*character - 0x10000) >> 10));
      add(0xDC00 + ((*character - 0x10000) & 0x3FFU));
    }
  }
  return bytes;
}

ConvertedText CheckedUtf8(std::string_view bytes) {
  std::string_view rest = bytes;
  while (!rest.empty()) {
    if (!TakeCharacter(rest)) {
      return {std::string(bytes.substr(0, bytes.size() - rest.size())), false};
    }
  }
  return {std::string(bytes), true};
}

}  // namespace imptable
