#include "core/WholeNumber.h"

#include <charconv>

#include "core/Blanks.h"

namespace imptable {

std::optional<std::int32_t> NumberFromText(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::int32_t> ReadWholeNumber(std::string_view text) {
  text = WithoutBlanks(text);
  return text.starts_with('-') ? std::nullopt : NumberFromText(text);
}

}  // namespace imptable
