#include "dialogs/PrintableText.h"

#include <algorithm>
#include <array>

#include "platform/text/CharacterCount.h"
#include "platform/text/Utf8.h"

namespace imptable {
namespace {

struct CodePointRange {
  char32_t first, last;
};

/// Characters that have no shape of their own, or change the order in which others are shown.
constexpr std::array<CodePointRange, 7> kUnprintable{{
    {0x0000, 0x001F},
    {0x007F, 0x009F},
    {0x061C, 0x061C},
    {0x200B, 0x200F},
    {0x2028, 0x202E},
    {0x2060, 0x206F},
    {0xFEFF, 0xFEFF},
}};

/// @param character  the bytes of one, valid UTF-8.
char32_t CodePoint(std::string_view character) {
  constexpr std::array<unsigned, 5> kLeadBits{0, 0x7F, 0x1F, 0x0F, 0x07};
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(character[at]); };
  char32_t code_point = byte(0) & kLeadBits[character.size()];
  for (std::size_t at = 1; at < character.size(); ++at) {
    code_point = code_point << 6U | (byte(at) & 0x3FU);
  }
  return code_point;
}

bool IsPrintable(char32_t code_point) {
  return std::none_of(kUnprintable.begin(), kUnprintable.end(), [&](const CodePointRange& range) {
    return code_point >= range.first && code_point <= range.last;
  });
}

}  // namespace

std::string PrintableText(const TextEncoding& encoding, std::string_view text, std::size_t most) {
  const std::size_t bytes = BytesOfCharacters(text, most, encoding.IsUtf8());
  const std::string utf8 = encoding.ToUtf8(text.substr(0, bytes));
  std::string printable;
  for (std::string_view rest = utf8; !rest.empty();) {
    const std::string_view character = rest.substr(0, std::max<std::size_t>(Utf8Length(rest), 1));
    if (IsPrintable(CodePoint(character))) {
      printable += character;
    } else {
      printable += '.';
    }
    rest.remove_prefix(character.size());
  }
  if (bytes < text.size()) printable += "...";
  return encoding.FromUtf8(printable);
}

}  // namespace imptable
