#include <array>
#include <charconv>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/opinions/Draws.h"
#include "tests/opinions/Opinions.h"
#include "tests/opinions/Printed.h"
#include "tests/opinions/System.h"

namespace imptable {
namespace {

using namespace std::string_view_literals;

constexpr int kTexts = 4000;
constexpr int kDateParts = 1000;

// Windows reads more texts as numbers than we do: groups of digits and currencies, which each user
// sets; several signs and open parentheses; hexadecimal and octal digits. So the cases have no ","
// in front of the decimal separator, no blanks between digits, and no "$", "&H" or "&O".

struct Frame {
  std::string_view before, after;
};
constexpr Frame kFrames[] = {
    {"", ""},       {"", ""},     {"", ""},         {"", ""},
    {" ", "  "},    {"\t", "\n"}, {"\r\n", "\v\f"}, {"+", ""},
    {"-", ""},      {" -", " "},  {"- ", ""},       {"+\t", ""},
    {"", "-"},      {"", " - "},  {"", "+"},        {"(", ")"},
    {" ( ", " ) "}, {"0", ""},    {"000", ""},      {"-00000000000000000000000000000000", ""},
    {"--", ""},     {"++", ""},   {"a", ""},        {"", "a"},
    {"", "%"},      {"#", ""},    {"", "x"},        {"_", ""},
    {"\x7F", ""},   {")", ""}};
constexpr std::string_view kWholes[] = {"0",          "1",          "32767",
                                        "32768",      "2147483647", "2147483648",
                                        "4294967296", "",           "99999999999999999999"};
constexpr std::string_view kFractions[] = {"5", "50000", "49999", "50001", "0", ""};
constexpr std::string_view kSeparators[] = {"", "", "", ".", ".", ".", ".."};
constexpr std::string_view kExponents[] = {"e", "E", "e+", "e-", "E-", "ee"};
constexpr std::string_view kWords[] = {
    "",  "abc", "nan", "NaN", "inf", "Infinity", "-inf",  "0x1F",  "True",  ".",
    "-", "+",   "e5",  "E",   "1e",  "1e+",      "1.5.1", "1e1.5", "1e1e1", "()"};

std::string Digits(Draws& draws, std::size_t most) {
  std::string text;
  for (std::size_t left = draws.Below(most + 1); left > 0; --left) {
    text += static_cast<char>('0' + draws.Below(10));
  }
  return text;
}

constexpr std::string_view kNone = "none";

std::string Shown(std::optional<double> number) {
  if (!number) return std::string(kNone);
  constexpr int kDigitsBehindThePoint = 16;
  std::array<char, 40> text{};
  char* const end = std::to_chars(text.data(), text.data() + text.size(), *number,
                                  std::chars_format::scientific, kDigitsBehindThePoint)
                        .ptr;
  return {text.data(), end};
}

/// A number, or what looks like one, in its parts.
struct Written {
  std::string before, whole, separator, fraction, exponent_mark, exponent, after;

  std::string Text() const {
    return before + whole + separator + fraction + exponent_mark + exponent + after;
  }

  bool IsBetweenZeroAndATenth() const {
    const std::string digits = whole + fraction;
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) return false;
    int power = exponent.empty() ? 0 : std::stoi(exponent);
    if (exponent_mark.ends_with('-')) power = -power;
    return static_cast<int>(whole.size()) - static_cast<int>(first) + power < 0;
  }
};

Written Write(Draws& draws, std::string_view decimal_separator) {
  Written number;
  if (draws.OneIn(20)) {
    number.before = draws.Of(kWords);
    return number;
  }
  const Frame frame = draws.Of(kFrames);
  number.before = frame.before;
  number.after = frame.after;
  number.whole = draws.Of(kWholes);
  if (!draws.OneIn(3)) number.whole = Digits(draws, draws.OneIn(30) ? 40 : 7);
  number.separator = draws.Of(kSeparators);
  if (number.separator == ".") number.separator = decimal_separator;
  if (!number.separator.empty()) {
    number.fraction = draws.Of(kFractions);
    if (draws.OneIn(2)) number.fraction = Digits(draws, draws.OneIn(30) ? 40 : 5);
  }
  if (draws.OneIn(6)) {
    number.exponent_mark = draws.Of(kExponents);
    number.exponent = Digits(draws, draws.OneIn(10) ? 4 : 1);
  }
  return number;
}

void AskForIntegers(Draws& draws, std::ostream& out) {
  Written number = Write(draws, ".");
  // Wine rounds such numbers by their first digit, wherever it stands: it reads 0.0061 as 1.
  while (number.IsBetweenZeroAndATenth()) number = Write(draws, ".");
  const std::string text = number.Text();
  out << "int16 " << Printed(text) << " -> " << ReadInt16(text) << '\n';
  out << "int32 " << Printed(text) << " -> " << ReadInt32(text) << '\n';
}

void AskForADouble(Draws& draws, std::ostream& out) {
  const std::string_view separator = draws.OneIn(2) ? "." : ",";
  const std::string text = Write(draws, separator).Text();
  out << "double " << separator << ' ' << Printed(text) << " -> "
      << Shown(ReadDouble(text, separator)) << '\n';
}

/// A year in a date is a number only if it has nothing but digits and blanks, whatever Windows
/// takes.
void AskForAYear(Draws& draws, std::ostream& out) {
  std::string text;
  while (text.size() < 4) text += draws.OneIn(3) ? draws.Of("  a"sv) : draws.Of("0123456789"sv);
  const auto year = ReadYear(text);
  out << "year " << Printed(text) << " -> " << (year ? std::to_string(*year) : kNone) << '\n';
}

}  // namespace

void AskForNumbers(std::ostream& out) {
  Draws draws(1137);
  for (int i = 0; i < kTexts; ++i) AskForIntegers(draws, out);
  for (int i = 0; i < kTexts; ++i) AskForADouble(draws, out);
  for (int i = 0; i < kDateParts; ++i) AskForAYear(draws, out);
}

}  // namespace imptable
