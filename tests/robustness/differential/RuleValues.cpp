#include "tests/robustness/differential/RuleValues.h"

#include <array>
#include <cmath>
#include <cstdlib>

namespace imptable::rules {
namespace {

unsigned ByteAt(const std::string& text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

bool Continues(const std::string& text, std::size_t at) {
  return ByteAt(text, at) >= 0x80 && ByteAt(text, at) <= 0xBF;
}

/// How many bytes the character here has, by the table of well-formed UTF-8; 1 for an invalid byte,
/// too.
std::size_t CharacterBytes(const std::string& text, std::size_t at) {
  const unsigned first = ByteAt(text, at);
  const unsigned second = ByteAt(text, at + 1);
  if (first >= 0xC2 && first <= 0xDF && Continues(text, at + 1)) return 2;
  if (first >= 0xE0 && first <= 0xEF && Continues(text, at + 1) && Continues(text, at + 2)) {
    if (first == 0xE0 && second < 0xA0) return 1;
    if (first == 0xED && second > 0x9F) return 1;
    return 3;
  }
  if (first >= 0xF0 && first <= 0xF4 && Continues(text, at + 1) && Continues(text, at + 2) &&
      Continues(text, at + 3)) {
    if (first == 0xF0 && second < 0x90) return 1;
    if (first == 0xF4 && second > 0x8F) return 1;
    return 4;
  }
  return 1;
}

bool IsDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

/// A part of a date is digits, with or without blanks around them.
std::optional<int> Part(const std::string& text) {
  const std::string digits = Trimmed(text);
  if (!IsDigits(digits)) return std::nullopt;
  return std::stoi(digits);
}

std::string Padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  while (text.size() < digits) text.insert(0, 1, '0');
  return text;
}

/// Where the parts of a date are: positions from 1, and lengths. `century` puts the current century
/// before a year of two digits.
struct Row {
  const char* style;
  bool century;
  std::size_t year, year_length, month, day;
};

constexpr std::array<Row, 16> kRows{{
    {"1", false, 5, 4, 3, 1},
    {"2", true, 5, 2, 3, 1},
    {"3", false, 5, 4, 1, 3},
    {"4", true, 5, 2, 1, 3},
    {"5", true, 1, 2, 5, 3},
    {"6", true, 1, 2, 3, 5},
    {"7", false, 7, 4, 4, 1},
    {"8", true, 7, 2, 4, 1},
    {"9", false, 7, 4, 1, 4},
    {"10", true, 7, 2, 1, 4},
    {"11", true, 1, 2, 7, 4},
    {"12", true, 1, 2, 4, 7},
    {"13", false, 1, 4, 7, 5},
    {"14", false, 1, 4, 5, 7},
    {"15", false, 1, 4, 9, 6},
    {"16", false, 1, 4, 6, 9},
}};

}  // namespace

Characters CharactersOf(const std::string& text, bool utf8) {
  Characters characters;
  characters.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bytes = utf8 ? CharacterBytes(text, at) : 1;
    characters.push_back(text.substr(at, bytes));
    at += bytes;
  }
  return characters;
}

std::string TextOf(const Characters& characters, std::size_t from, std::size_t count) {
  std::string text;
  for (std::size_t i = from; i < characters.size() && i < from + count; ++i) text += characters[i];
  return text;
}

std::string TextOf(const Characters& characters) {
  return TextOf(characters, 0, characters.size());
}

std::string TrimmedAtTheEnd(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

std::string Trimmed(const std::string& text) {
  std::string rest = TrimmedAtTheEnd(text);
  while (!rest.empty() && rest.front() == ' ') rest.erase(0, 1);
  return rest;
}

std::optional<Date> DateByStyle(const Characters& value, const std::string& style,
                                const std::string& time_code, int current_year) {
  Date date;
  for (const Row& row : kRows) {
    if (style != row.style) continue;
    std::string year = TextOf(value, row.year - 1, row.year_length);
    // A blank or missing year is no number: it gets no century.
    if (row.century && !Trimmed(year).empty()) {
      year = Padded(current_year, 4).substr(0, 2) + year;
    }
    const auto y = Part(year);
    const auto m = Part(TextOf(value, row.month - 1, 2));
    const auto d = Part(TextOf(value, row.day - 1, 2));
    if (!y || !m || !d) return std::nullopt;
    date.year = *y;
    date.month = *m;
    date.day = *d;
  }
  if (time_code != "1" && time_code != "0") return date;
  const std::size_t length = time_code == "1" ? 8 : 5;
  const std::size_t from = value.size() < length ? 0 : value.size() - length;
  const auto hour = Part(TextOf(value, from, 2));
  const auto minute = Part(TextOf(value, from + 3, 2));
  if (!hour || !minute) return std::nullopt;
  date.hour = *hour;
  date.minute = *minute;
  if (time_code == "0") return date;
  const auto second = Part(TextOf(value, from + 6, 2));
  if (!second) return std::nullopt;
  date.second = *second;
  return date;
}

std::string FixedForm(const Date& date) {
  return Padded(date.year, 4) + "-" + Padded(date.month, 2) + "-" + Padded(date.day, 2) + " " +
         Padded(date.hour, 2) + ":" + Padded(date.minute, 2) + ":" + Padded(date.second, 2) +
         ".000";
}

std::optional<Date> DateOfFixedForm(const std::string& text) {
  const std::string trimmed = Trimmed(text);
  std::string shape;  // with each digit as 9
  for (const char byte : trimmed) shape += byte >= '0' && byte <= '9' ? '9' : byte;
  const std::string longest = "9999-99-99 99:99:99.999999999";
  const std::size_t size = shape.size();
  if (longest.substr(0, size) != shape) return std::nullopt;
  if (size != 10 && size != 16 && size != 19 && size < 21) return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t digits) {
    return at < size ? std::stoi(trimmed.substr(at, digits)) : 0;
  };
  Date date{
      number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), number(17, 2), 0};
  if (size > 20) date.nanoseconds = std::stoi((trimmed.substr(20) + "000000000").substr(0, 9));
  return date;
}

std::string WithSeparator(const std::string& value, const std::string& separator) {
  for (const char mark : {'.', ','}) {
    const std::size_t at = value.find(mark);
    if (at != std::string::npos) return value.substr(0, at) + separator + value.substr(at + 1);
  }
  return value;
}

std::optional<std::string> WithImpliedDecimals(const Characters& value, std::size_t decimals,
                                               const std::string& separator) {
  if (decimals == 0) return TextOf(value);
  if (value.size() < decimals) return std::nullopt;
  const std::size_t whole = value.size() - decimals;
  return TextOf(value, 0, whole) + separator + TextOf(value, whole, decimals);
}

std::optional<double> UserNumber(const std::string& text, const std::string& separator) {
  constexpr const char* kWhite = " \t\n\v\f\r";
  const auto strip = [&](std::string part) {
    part.erase(0, std::min(part.find_first_not_of(kWhite), part.size()));
    part.erase(part.find_last_not_of(kWhite) + 1);
    return part;
  };
  std::string rest = strip(text);
  bool negative = false;
  if (rest.size() >= 2 && rest.front() == '(' && rest.back() == ')') {
    negative = true;
    rest = strip(rest.substr(1, rest.size() - 2));
  } else if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
    negative = rest.front() == '-';
    rest = strip(rest.substr(1));
  } else if (!rest.empty() && (rest.back() == '-' || rest.back() == '+')) {
    negative = rest.back() == '-';
    rest = strip(rest.substr(0, rest.size() - 1));
  }
  std::string exponent;
  const std::size_t mark = rest.find_first_of("eE");
  if (mark != std::string::npos) {
    exponent = rest.substr(mark + 1);
    rest = rest.substr(0, mark);
    const bool has_sign = exponent.starts_with('-') || exponent.starts_with('+');
    if (!IsDigits(exponent.substr(has_sign ? 1 : 0))) return std::nullopt;
  }
  std::string fraction;
  const std::size_t point = separator.empty() ? std::string::npos : rest.find(separator);
  if (point != std::string::npos) {
    fraction = rest.substr(point + separator.size());
    rest = rest.substr(0, point);
  }
  const std::string digits = rest + fraction;
  if (!IsDigits(digits) || digits.size() > 300) return std::nullopt;
  const std::string plain =
      (negative ? "-0" : "0") + rest + "." + fraction + "0e" + (exponent.empty() ? "0" : exponent);
  const double number = std::strtod(plain.c_str(), nullptr);
  if (std::isinf(number)) return std::nullopt;
  return number;
}

}  // namespace imptable::rules
