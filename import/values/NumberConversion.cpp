#include "import/values/NumberConversion.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/NumberText.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

/// No useful number has more digits. So few digits can't overflow a double. With an exponent below
/// zero a conversion can only fail on a number that is too small.
constexpr std::size_t kMostDigits = 300;

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
  const auto number = ParseNumberText(value, separator);
  if (!number || number->whole.size() + number->fraction.size() > kMostDigits) return std::nullopt;
  std::array<char, kMostDigits + 20> text{};
  char* end = text.data();
  if (number->negative) *end++ = '-';
  end = std::copy(number->whole.begin(), number->whole.end(), end);
  *end++ = '.';
  end = std::copy(number->fraction.begin(), number->fraction.end(), end);
  *end++ = 'e';
  end = std::to_chars(end, text.data() + text.size(), number->exponent).ptr;
  double result = 0;
  const std::errc error = std::from_chars(text.data(), end, result).ec;
  if (error == std::errc()) return result;
  if (number->exponent >= 0) return std::nullopt;
  return number->negative ? -0.0 : 0.0;  // too small for a double
}

}  // namespace imptable
