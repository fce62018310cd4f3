#include <array>
#include <charconv>

#include "import/CharacterCount.h"
#include "import/ValueConversion.h"
#include "plugin/core/Blanks.h"

namespace imptable {
namespace {

/// No number that a double can be read from usefully is longer.
constexpr std::size_t kMostNumberBytes = 400;

bool IsNumberCharacter(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

}  // namespace

void ReplaceDecimalSeparator(std::string_view value, std::string_view separator, std::string& out) {
  std::size_t at = value.find('.');
  if (at == std::string_view::npos) at = value.find(',');
  if (at == std::string_view::npos) {
    out.assign(value);
    return;
  }
  out.assign(value.substr(0, at));
  out.append(separator);
  out.append(value.substr(at + 1));
}

bool InsertDecimalSeparator(std::string_view value, std::size_t decimals,
                            std::string_view separator, bool utf8, std::string& out) {
  const bool by_bytes = !utf8 || IsAscii(value);
  const std::size_t characters = by_bytes ? value.size() : CountCharacters(value, true);
  if (characters < decimals) return false;
  const std::size_t at = BytesOfCharacters(value, characters - decimals, !by_bytes);
  out.assign(value.substr(0, at));
  if (decimals > 0) out.append(separator);
  out.append(value.substr(at));
  return true;
}

std::optional<double> ReadUserNumber(std::string_view value, std::string_view separator) {
  value = WithoutBlanks(value);
  if (value.starts_with('+')) {
    value.remove_prefix(1);
    if (value.starts_with('-')) return std::nullopt;
  }
  if (value.empty() || value.size() > kMostNumberBytes) return std::nullopt;
  std::array<char, kMostNumberBytes> digits{};
  char* end = digits.data();
  while (!value.empty()) {
    if (!separator.empty() && value.starts_with(separator)) {
      *end++ = '.';
      value.remove_prefix(separator.size());
    } else if (value.front() != '.' && IsNumberCharacter(value.front())) {
      *end++ = value.front();
      value.remove_prefix(1);
    } else {
      return std::nullopt;
    }
  }
  double number = 0;
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace imptable
