#include "core/NumberText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "core/Blanks.h"

namespace imptable {
namespace {

/// A larger exponent counts as this one: no text has enough digits to make up for it.
constexpr std::int32_t kMostExponent = 1'000'000;

/// Takes a text apart from left to right.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  void SkipSpace() {
    TakeWhile([](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
  }

  bool Take(std::string_view token) {
    if (token.empty() || !rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  /// @return '+', '-', or NUL when there is none.
  char TakeSign() { return Take("+") ? '+' : Take("-") ? '-' : '\0'; }

  std::string_view TakeDigits() {
    return TakeWhile([](char c) { return c >= '0' && c <= '9'; });
  }

 private:
  template <typename Belongs>
  std::string_view TakeWhile(Belongs belongs) {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), belongs);
    const std::string_view taken = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

std::int32_t ExponentOf(std::string_view digits, bool negative) {
  std::int32_t exponent = 0;
  for (const char digit : digits) exponent = std::min(exponent * 10 + digit - '0', kMostExponent);
  return negative ? -exponent : exponent;
}

}  // namespace

std::optional<NumberText> ParseNumberText(std::string_view text,
                                          std::string_view decimal_separator) {
  NumberText number;
  Scanner scanner(text);
  scanner.SkipSpace();
  const bool enclosed = scanner.Take("(");
  char sign = enclosed ? '-' : scanner.TakeSign();
  scanner.SkipSpace();
  number.whole = scanner.TakeDigits();
  if (scanner.Take(decimal_separator)) number.fraction = scanner.TakeDigits();
  if (number.whole.empty() && number.fraction.empty()) return std::nullopt;
  if (scanner.Take("e") || scanner.Take("E")) {
    const bool negative = scanner.TakeSign() == '-';
    const std::string_view digits = scanner.TakeDigits();
    if (digits.empty()) return std::nullopt;
    number.exponent = ExponentOf(digits, negative);
  }
  scanner.SkipSpace();
  if (enclosed && !scanner.Take(")")) return std::nullopt;
  if (sign == '\0') sign = scanner.TakeSign();
  scanner.SkipSpace();
  if (!scanner.AtEnd()) return std::nullopt;
  number.negative = sign == '-';
  return number;
}

std::optional<std::int32_t> NumberFromText(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::uint32_t> ReadCount(std::string_view text) {
  text = WithoutBlanks(text);
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<std::int32_t> ReadWholeNumber(std::string_view text) {
  text = WithoutBlanks(text);
  return text.starts_with('-') ? std::nullopt : NumberFromText(text);
}

}  // namespace imptable
