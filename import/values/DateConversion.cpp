#include "import/values/DateConversion.h"

#include <algorithm>
#include <string>

#include "core/Blanks.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

/// The most characters that a date takes in any style, and those of its time.
constexpr std::size_t kMostDateCharacters = 10;
constexpr std::size_t kSecondsCharacters = 8;  // hh:mm:ss
constexpr std::size_t kMinutesCharacters = 5;  // hh:mm

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads `count` characters from the 1-based position `at` as an integer, as far as the text goes.
bool ReadPart(std::string_view text, std::size_t at, std::size_t count, unsigned& part) {
  if (at > text.size()) return false;
  const std::string_view digits = WithoutBlanks(text.substr(at - 1, count));
  if (digits.empty()) return false;
  unsigned value = 0;
  for (const char c : digits) {
    if (!IsDigit(c)) return false;
    value = value * 10 + static_cast<unsigned>(c - '0');
  }
  part = value;
  return true;
}

/// Reads a year of two characters by putting them behind the century. A blank before the digit
/// makes them no number. A blank behind it makes a year of three digits.
bool ReadShortYear(std::string_view text, std::size_t at, unsigned century, unsigned& year) {
  unsigned part = 0;
  if (!ReadPart(text, at, 2, part) || text[at - 1] == ' ') return false;
  const bool one_digit = WithoutTrailingBlanks(text.substr(at - 1, 2)).size() == 1;
  year = century * (one_digit ? 10 : 100) + part;
  return true;
}

/// The value with one byte for each character. A character that isn't ASCII becomes a byte that is
/// no digit. Only the value's two ends are read, so a caller may leave out its middle.
std::string OneByteImage(std::string_view value) {
  std::string image;
  for (std::size_t at = 0; at < value.size();) {
    const std::size_t bytes = BytesOfCharacters(value.substr(at), 1, true);
    image += bytes == 1 ? value[at] : '\x7F';
    at += bytes;
  }
  return image;
}

bool ReadDay(std::string_view value, const DateFormat& format, int century,
             SQL_TIMESTAMP_STRUCT& date) {
  if (format.style == 0) return true;
  const DateStyle& style = kDateStyles[format.style - 1U];
  unsigned year = 0;
  unsigned month = 0;
  unsigned day = 0;
  const bool has_year =
      style.year_digits == 2
          ? ReadShortYear(value, style.year_at, static_cast<unsigned>(century), year)
          : ReadPart(value, style.year_at, style.year_digits, year);
  if (!has_year || !ReadPart(value, style.month_at, 2, month) ||
      !ReadPart(value, style.day_at, 2, day)) {
    return false;
  }
  date.year = static_cast<SQLSMALLINT>(year);
  date.month = static_cast<SQLUSMALLINT>(month);
  date.day = static_cast<SQLUSMALLINT>(day);
  return true;
}

bool ReadTime(std::string_view value, TimeCode code, SQL_TIMESTAMP_STRUCT& date) {
  if (code == TimeCode::kNone) return true;
  const std::size_t length = code == TimeCode::kSeconds ? kSecondsCharacters : kMinutesCharacters;
  const std::string_view time = value.substr(value.size() - std::min(length, value.size()));
  unsigned hour = 0;
  unsigned minute = 0;
  unsigned second = 0;
  if (!ReadPart(time, 1, 2, hour) || !ReadPart(time, 4, 2, minute)) return false;
  if (code == TimeCode::kSeconds && !ReadPart(time, 7, 2, second)) return false;
  date.hour = static_cast<SQLUSMALLINT>(hour);
  date.minute = static_cast<SQLUSMALLINT>(minute);
  date.second = static_cast<SQLUSMALLINT>(second);
  return true;
}

/// Writes `value` as `digits` decimal digits.
char* WriteDigits(char* out, unsigned value, int digits) {
  for (int i = digits - 1; i >= 0; --i, value /= 10) out[i] = static_cast<char>('0' + value % 10);
  return out + digits;
}

/// Takes exactly `count` digits from the front of `text`.
bool TakeDigits(std::string_view& text, std::size_t count, unsigned& value) {
  if (text.size() < count || !std::all_of(text.begin(), text.begin() + count, IsDigit))
    return false;
  value = 0;
  for (const char c : text.substr(0, count)) value = value * 10 + static_cast<unsigned>(c - '0');
  text.remove_prefix(count);
  return true;
}

bool TakeCharacter(std::string_view& text, char c) {
  if (!text.starts_with(c)) return false;
  text.remove_prefix(1);
  return true;
}

constexpr std::size_t kMostFractionDigits = 9;  // the structure's fraction is in nanoseconds

bool TakeFraction(std::string_view& text, unsigned& nanoseconds) {
  const std::size_t digits = text.size();
  if (digits == 0 || digits > kMostFractionDigits || !TakeDigits(text, digits, nanoseconds)) {
    return false;
  }
  for (std::size_t i = digits; i < kMostFractionDigits; ++i) nanoseconds *= 10;
  return true;
}

}  // namespace

std::optional<SQL_TIMESTAMP_STRUCT> ReadDateValue(std::string_view value, const DateFormat& format,
                                                  int century, bool utf8) {
  std::string image;
  if (utf8 && !IsAscii(value)) {
    // Positions count characters; the bytes between the date and the time are never looked at.
    constexpr std::size_t kMostBytes = 4 * (kMostDateCharacters + kSecondsCharacters);
    if (value.size() > 2 * kMostBytes) {
      image = OneByteImage(value.substr(0, kMostBytes)) +
              OneByteImage(value.substr(value.size() - kMostBytes));
    } else {
      image = OneByteImage(value);
    }
    value = image;
  }
  SQL_TIMESTAMP_STRUCT date{};
  if (!ReadDay(value, format, century, date) || !ReadTime(value, format.time, date)) {
    return std::nullopt;
  }
  return date;
}

std::optional<SQL_TIMESTAMP_STRUCT> ReadIsoDate(std::string_view value) {
  value = WithoutBlanks(value);
  unsigned year = 0;
  unsigned month = 0;
  unsigned day = 0;
  unsigned hour = 0;
  unsigned minute = 0;
  unsigned second = 0;
  unsigned fraction = 0;
  if (!TakeDigits(value, 4, year) || !TakeCharacter(value, '-') || !TakeDigits(value, 2, month) ||
      !TakeCharacter(value, '-') || !TakeDigits(value, 2, day)) {
    return std::nullopt;
  }
  if (!value.empty()) {
    if (!TakeCharacter(value, ' ') || !TakeDigits(value, 2, hour) || !TakeCharacter(value, ':') ||
        !TakeDigits(value, 2, minute)) {
      return std::nullopt;
    }
    if (TakeCharacter(value, ':')) {
      if (!TakeDigits(value, 2, second)) return std::nullopt;
      if (TakeCharacter(value, '.') && !TakeFraction(value, fraction)) return std::nullopt;
    }
    if (!value.empty()) return std::nullopt;
  }
  SQL_TIMESTAMP_STRUCT date{};
  date.year = static_cast<SQLSMALLINT>(year);
  date.month = static_cast<SQLUSMALLINT>(month);
  date.day = static_cast<SQLUSMALLINT>(day);
  date.hour = static_cast<SQLUSMALLINT>(hour);
  date.minute = static_cast<SQLUSMALLINT>(minute);
  date.second = static_cast<SQLUSMALLINT>(second);
  date.fraction = fraction;
  return date;
}

std::array<char, kDateTextBytes> FormatDateValue(const SQL_TIMESTAMP_STRUCT& date) {
  std::array<char, kDateTextBytes> text{};
  char* out = WriteDigits(text.data(), static_cast<unsigned>(date.year), 4);
  *out++ = '-';
  out = WriteDigits(out, date.month, 2);
  *out++ = '-';
  out = WriteDigits(out, date.day, 2);
  *out++ = ' ';
  out = WriteDigits(out, date.hour, 2);
  *out++ = ':';
  out = WriteDigits(out, date.minute, 2);
  *out++ = ':';
  out = WriteDigits(out, date.second, 2);
  *out++ = '.';
  WriteDigits(out, 0, 3);
  return text;
}

}  // namespace imptable
