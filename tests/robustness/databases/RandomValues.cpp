#include "tests/robustness/databases/RandomValues.h"

#include <array>

namespace imptable {
namespace {

constexpr std::array kOddTexts{"",
                               " ",
                               "    ",
                               "Null",
                               "null",
                               "NULL",
                               "NaN",
                               "nan",
                               "Infinity",
                               "-inf",
                               "0x10",
                               "0x0",
                               "1e3",
                               "1e400",
                               "1e-400",
                               "1e",
                               ".",
                               "-",
                               "+",
                               "--1",
                               "1,5",
                               "1.2.3",
                               "12 EUR",
                               "12x",
                               "x12",
                               "$12.50",
                               "12 %",
                               "1 000",
                               "1_000",
                               "(12)",
                               "12-",
                               "- 12",
                               "true",
                               "t",
                               "yes",
                               "false",
                               "a",
                               "b",
                               "x,y",
                               "x",
                               "c",
                               "A",
                               "''",
                               "'",
                               "\"",
                               "\\",
                               "\\N",
                               "%",
                               "_",
                               "{}",
                               "{\"a\":1}",
                               "[1,",
                               "\t7",
                               "7\t",
                               "7\xC2\xA0",
                               "é",
                               "日本",
                               "\xFF",
                               "\xC3",
                               "\x01",
                               "' OR 1=1 --",
                               "0 OR 1=1",
                               "NULL--",
                               "now()",
                               "DEFAULT",
                               "?",
                               "::int",
                               "1 day",
                               "12:30",
                               "24:00:00",
                               "25:61:00",
                               "9:59:60",
                               "838:59:59",
                               "900:00:00",
                               "-10:00:00",
                               "10h",
                               "abc",
                               "0000-00-00",
                               "0000-00-00 00:00:00",
                               "2006-02-30",
                               "2006-13-45",
                               "2006-01-32",
                               "2006-00-10",
                               "9999-12-31",
                               "10000-01-01",
                               "1969-12-31",
                               "2038-01-19 03:14:08",
                               "2006-01-02 25:00:00",
                               "2006-01-02 10:61",
                               "20060102",
                               "02/01/2006",
                               "2006-1-2",
                               "00000000-0000-0000-0000-000000000000",
                               "12345678-1234-1234-1234-1234567890ab",
                               "0.1",
                               "1/2",
                               "5e-1",
                               "99999999999999999999",
                               "-99999999999999999999",
                               "9223372036854775807",
                               "9223372036854775808",
                               "2147483648",
                               "32768",
                               "128",
                               "256",
                               "4294967296"};

}  // namespace

std::string RandomValues::Digits(int most) {
  std::string digits;
  for (int n = Below(most) + 1; n > 0; --n) digits += static_cast<char>('0' + Below(10));
  return digits;
}

std::string RandomValues::Number() {
  std::string number = OneIn(4) ? "-" : OneIn(8) ? "+" : "";
  number += Digits(OneIn(6) ? 30 : 5);
  if (OneIn(2)) number += (OneIn(5) ? "," : ".") + Digits(OneIn(6) ? 20 : 3);
  if (OneIn(10)) number += "e" + Digits(2);
  if (OneIn(12))
    number += std::array{" EUR", "x", "%", "-", " "}[static_cast<std::size_t>(Below(5))];
  return OneIn(10) ? ' ' + number + ' ' : number;
}

std::string RandomValues::Date() {
  const auto part = [this](int most) {
    const int number = Below(most);
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  std::string date = std::to_string(1900 + Below(200)) + '-' + part(14) + '-' + part(33);
  if (OneIn(2)) date += ' ' + part(25) + ':' + part(62) + (OneIn(2) ? ":" + part(62) : "");
  return date;
}

std::string RandomValues::Time() {
  return std::to_string(Below(26)) + ':' + Digits(2) + (OneIn(3) ? "" : ":" + Digits(2));
}

std::string RandomValues::Text() {
  std::string text;
  const int most = OneIn(20) ? 900 : 12;
  for (int n = Below(most); n > 0; --n) {
    if (OneIn(12)) {
      text += "é";
    } else {
      const char c = static_cast<char>(' ' + Below(95));
      // The delimiter gives the line another field, so it comes only now and then.
      text += c == ';' && !OneIn(20) ? 'x' : c;
    }
  }
  return text;
}

std::string RandomValues::Any() {
  switch (Below(6)) {
    case 0:
    case 1:
      return Number();
    case 2:
      return Date();
    case 3:
      return OneIn(2) ? Time() : Text();
    default:
      return kOddTexts[static_cast<std::size_t>(Below(static_cast<int>(kOddTexts.size())))];
  }
}

std::string RandomValues::KeyLike(const std::vector<std::string>& keys) {
  const std::string& key = keys[static_cast<std::size_t>(Below(static_cast<int>(keys.size())))];
  switch (Below(12)) {
    case 0:
    case 1:
    case 2:
      return key;
    case 3:
      return std::array{
                 " ", "+", "0", "-", "'", "x", "00", "\t"}[static_cast<std::size_t>(Below(8))] +
             key;
    case 4:
      return key + std::array{" ", ".0", ".", "e0", "x", " EUR", ",0", "-", "\t", ".000", "é"}
                       [static_cast<std::size_t>(Below(11))];
    case 5:
      return key.substr(0, static_cast<std::size_t>(Below(static_cast<int>(key.size()) + 1)));
    case 6:
      return std::string(500 - key.size() % 7, '0') + key;
    default:
      return Any();
  }
}

}  // namespace imptable
