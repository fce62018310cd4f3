#include "core/Texts.h"

#include <array>
#include <cstddef>

#include "core/MessageCatalogue.h"

namespace imptable {
namespace {

constexpr auto kWordings = std::to_array<Wording>({
#define COMPONENT_TEXT(name, french, english) {french, english},
#include "resources/Texts.inc"
#undef COMPONENT_TEXT
});

}  // namespace

std::string InWords(const Wording& wording, std::int32_t language_offset,
                    const TextEncoding& encoding, const std::vector<std::string>& arguments) {
  const std::string pattern =
      encoding.FromUtf8(language_offset == kEnglishOffset ? wording.english : wording.french);
  std::string words;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char next = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
    const auto argument = static_cast<std::size_t>(next - '1');
    if (pattern[i] == '%' && next >= '1' && argument < arguments.size()) {
      words += arguments[argument];
      ++i;
    } else {
      words += pattern[i];
    }
  }
  return words;
}

std::string InWords(ComponentText text, std::int32_t language_offset, const TextEncoding& encoding,
                    const std::vector<std::string>& arguments) {
  return InWords(kWordings.at(static_cast<std::size_t>(text)), language_offset, encoding,
                 arguments);
}

}  // namespace imptable
