#include "platform/text/Utf16.h"

#include "platform/text/Utf8.h"

namespace imptable {

std::size_t Utf16Length(std::string_view text) {
  std::size_t length = 0;
  while (!text.empty()) {
    const std::size_t bytes = Utf8Length(text);
    length += bytes == 4 ? 2 : 1;
    text.remove_prefix(bytes == 0 ? 1 : bytes);
  }
  return length;
}

std::string Utf8OfUtf16(std::string_view bytes, ByteOrder order) {
  const std::size_t high = order == ByteOrder::kBigEndian ? 0 : 1;
  std::string text;
  char32_t lead = 0;  // first half of a pair whose second half is still to come
  const auto flush = [&] {
    if (lead != 0) text += kReplacementCharacter;
    lead = 0;
  };
  for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
    const char32_t unit = static_cast<unsigned char>(bytes[high]) * 0x100U +
                          static_cast<unsigned char>(bytes[1 - high]);
    if (unit >= 0xDC00 && unit <= 0xDFFF && lead != 0) {
      AppendUtf8(text, 0x10000U + ((lead - 0xD800U) << 10) + (unit - 0xDC00U));
      lead = 0;
      continue;
    }
    flush();
    if (unit < 0xD800 || unit > 0xDFFF) {
      AppendUtf8(text, unit);
    } else if (unit < 0xDC00) {
      lead = unit;
    } else {
      text += kReplacementCharacter;
    }
  }
  flush();
  return text;
}

}  // namespace imptable
