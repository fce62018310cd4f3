#include "host/HostTexts.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "core/MessageCatalogue.h"

namespace imptable {
namespace {

struct Wording {
  std::string_view french;
  std::string_view english;
};

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
  const Wording& wording = kWordings.at(static_cast<std::size_t>(text));
  const std::string pattern =
      encoding_->FromUtf8(language_ == Language::kEnglish ? wording.english : wording.french);
  std::string result;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char next = i + 1 < pattern.size() ? pattern[i + 1] : '\0';
    const auto argument = static_cast<std::size_t>(next - '1');
    if (pattern[i] == '%' && next >= '1' && argument < arguments.size()) {
      result += arguments[argument];
      ++i;
    } else {
      result += pattern[i];
    }
  }
  return result;
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
