#include "import/values/KeyText.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace imptable {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view WithoutSpace(std::string_view text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// Takes a text apart from left to right.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }
  std::string_view rest() const { return rest_; }

  bool Take(std::string_view token) {
    if (token.empty() || !rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  void TakeSign() {
    if (!Take("+")) Take("-");
  }

  std::string_view TakeDigits() {
    const auto* const end = std::find_if_not(rest_.begin(), rest_.end(), IsDigit);
    const std::string_view digits = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(digits.size());
    return digits;
  }

  /// Takes digits. @return whether they are `fewest` to `most_digits`, and their number at most
  /// `most`.
  bool TakeNumber(std::size_t fewest, std::size_t most_digits, int most) {
    const std::string_view digits = TakeDigits();
    if (digits.size() < fewest || digits.size() > most_digits) return false;
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number <= most;
  }

 private:
  std::string_view rest_;
};

bool IsWord(std::string_view text, std::span<const std::string_view> words) {
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) {
    return std::equal(text.begin(), text.end(), word.begin(), word.end(), [](char a, char b) {
      return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
    });
  });
}

constexpr int kMostHours = 838;
constexpr int kHoursOfADay = 24;
constexpr int kMostMinutes = 59;

bool TakeDate(Scanner& scanner) {
  return scanner.TakeNumber(4, 4, 9999) && scanner.Take("-") && scanner.TakeNumber(2, 2, 12) &&
         scanner.Take("-") && scanner.TakeNumber(2, 2, 31) && scanner.Take(" ");
}

bool TakeFraction(Scanner& scanner) {
  if (scanner.Take(".")) scanner.TakeDigits();
  return scanner.AtEnd();
}

/// Whether the digits, taken from the right, are hhmmss.
bool IsPackedTime(std::string_view digits) {
  if (digits.size() > 7) return false;
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number % 100 <= kMostMinutes && number / 100 % 100 <= kMostMinutes &&
         number / 10'000 <= kMostHours;
}

/// Whether a time with these hours lies within a day; 24:00 does.
bool IsTimeOfDay(std::string_view hours, std::string_view text) {
  // A driver that reads two digits takes the third for the end of the text.
  if (hours.size() > 2) return false;
  int number = kMostHours;
  std::from_chars(hours.data(), hours.data() + hours.size(), number);
  if (number < kHoursOfADay) return true;
  text.remove_prefix(hours.size());
  return number == kHoursOfADay && text.find_first_not_of("0:.") == std::string_view::npos;
}

}  // namespace

bool IsNumberText(std::string_view text, const NumberForm& form) {
  Scanner scanner(WithoutSpace(text));
  scanner.TakeSign();
  if (IsWord(scanner.rest(), form.words)) return true;
  std::size_t digits = scanner.TakeDigits().size();
  if (scanner.Take(".") || scanner.Take(form.separator)) digits += scanner.TakeDigits().size();
  if (digits == 0) return false;
  if (scanner.Take("e") || scanner.Take("E")) {
    scanner.TakeSign();
    if (scanner.TakeDigits().empty()) return false;
  }
  return scanner.AtEnd();
}

bool IsBitText(std::string_view text) {
  text = WithoutSpace(text);
  while (text.size() > 1 && text.front() == '0') text.remove_prefix(1);
  return text == "0" || text == "1";
}

bool IsHexText(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdefABCDEF";
  return text.size() % 2 == 0 && text.find_first_not_of(kDigits) == std::string_view::npos;
}

bool IsTimeText(std::string_view text, bool packed) {
  text = WithoutSpace(text);
  Scanner dated(text);
  const bool has_date = TakeDate(dated);
  Scanner scanner(has_date ? dated.rest() : text);
  if (packed && !has_date) scanner.TakeSign();
  Scanner parts(scanner.rest());
  const std::string_view first = scanner.TakeDigits();
  if (first.empty()) return false;
  if (!scanner.Take(":")) {
    return packed && !has_date && IsPackedTime(first) && TakeFraction(scanner);
  }
  if (!packed && !IsTimeOfDay(first, parts.rest())) return false;
  const int most_hours = has_date ? kHoursOfADay - 1 : kMostHours;
  if (!parts.TakeNumber(1, 3, most_hours) || !parts.Take(":") ||
      !parts.TakeNumber(1, 2, kMostMinutes)) {
    return false;
  }
  if (parts.AtEnd()) return true;
  return parts.Take(":") && parts.TakeNumber(1, 2, kMostMinutes) && TakeFraction(parts);
}

bool IsDateInBounds(const SQL_TIMESTAMP_STRUCT& date) {
  return date.year >= 0 && date.year <= 9999 && date.month <= 12 && date.day <= 31;
}

bool IsTimeInBounds(const SQL_TIMESTAMP_STRUCT& date) {
  return date.hour <= 23 && date.minute <= kMostMinutes && date.second <= kMostMinutes;
}

}  // namespace imptable
