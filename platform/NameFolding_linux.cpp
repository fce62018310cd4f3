#include <locale.h>
#include <wctype.h>

#include <cstddef>
#include <stdexcept>

#include "platform/NameFolding.h"

namespace imptable {
namespace {

locale_t Utf8Locale() {
  static const locale_t locale = [] {
    const locale_t created = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (created == nullptr) throw std::runtime_error("The system has no C.UTF-8 locale.");
    return created;
  }();
  return locale;
}

constexpr char32_t kInvalid = 0xFFFFFFFF;

/// Decodes the character at `position` and moves past it.
/// @return kInvalid, without moving, when no valid UTF-8 character starts there: overlong forms,
/// surrogates and anything above U+10FFFF included.
char32_t Decode(std::string_view text, std::size_t& position) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(position);
  if (lead < 0x80) return text[position++] & 0x7F;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - position < length) return kInvalid;
  char32_t character = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(position + i) & 0xC0U) != 0x80) return kInvalid;
    character = character << 6 | (byte(position + i) & 0x3FU);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF ||
      (character >= 0xD800 && character <= 0xDFFF)) {
    return kInvalid;
  }
  position += length;
  return character;
}

void Append(std::string& text, char32_t character) {
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

}  // namespace

std::string FoldName(std::string_view name) {
  std::string folded(name);
  bool ascii = true;
  for (char& byte : folded) {
    if (byte >= 'a' && byte <= 'z') byte = static_cast<char>(byte - 'a' + 'A');
    ascii = ascii && static_cast<unsigned char>(byte) < 0x80;
  }
  if (ascii) return folded;

  const locale_t locale = Utf8Locale();
  folded.clear();
  for (std::size_t position = 0; position < name.size();) {
    const char32_t character = Decode(name, position);
    if (character == kInvalid) {
      folded += name[position++];
    } else {
      Append(folded, static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), locale)));
    }
  }
  return folded;
}

}  // namespace imptable
