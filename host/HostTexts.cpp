#include "host/HostTexts.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "core/MessageCatalogue.h"
#include "core/Texts.h"

namespace imptable {
namespace {

constexpr auto kWordings = std::to_array<Wording>({
#define HOST_TEXT(name, french, english) {french, english},
#include "host/HostTexts.inc"
#undef HOST_TEXT
});

}  // namespace

std::optional<Language> LanguageNamed(std::string_view name) {
  if (name == "fr") return Language::kFrench;
  if (name == "en") return Language::kEnglish;
  return std::nullopt;
}

std::int32_t OffsetOf(Language language) {
  return language == Language::kEnglish ? kEnglishOffset : kFrenchOffset;
}

std::string HostTexts::Text(HostText text, const std::vector<std::string>& arguments) const {
  return InWords(kWordings.at(static_cast<std::size_t>(text)), OffsetOf(language_), *encoding_,
                 arguments);
}

std::string HostTexts::Number(std::int64_t number) const {
  const char mark = language_ == Language::kEnglish ? ',' : ' ';
  std::string digits = std::to_string(number);
  const std::size_t first = number < 0 ? 1 : 0;
  for (std::size_t at = digits.size(); at > first + 3;) {
    at -= 3;
    digits.insert(at, 1, mark);
  }
  return digits;
}

std::string HostTexts::Decimal(double number) const {
  const auto tenths = static_cast<std::int64_t>(std::llround(number * 10));
  const char mark = language_ == Language::kEnglish ? '.' : ',';
  return Number(tenths / 10) + mark + std::to_string(tenths % 10);
}

}  // namespace imptable
