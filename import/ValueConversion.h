#ifndef IMPORT_VALUE_CONVERSION_H_
#define IMPORT_VALUE_CONVERSION_H_

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "odbc/OdbcApi.h"

namespace imptable {

/// What stands at the end of a date value.
enum class TimeCode : std::uint8_t { kNone, kMinutes, kSeconds };  // none, hh:mm, hh:mm:ss

/// Where one date style keeps its parts: 1-based character positions. Months and days take two
/// characters, years two or four; a two-digit year takes the century.
struct DateStyle {
  std::uint8_t year_at, year_digits, month_at, day_at;
};

// The index + 1 is stored in task settings: never reorder.
inline constexpr std::array<DateStyle, 16> kDateStyles{{
    {5, 4, 3, 1},  // 1   ddmmyyyy
    {5, 2, 3, 1},  // 2   ddmmyy
    {5, 4, 1, 3},  // 3   mmddyyyy
    {5, 2, 1, 3},  // 4   mmddyy
    {1, 2, 5, 3},  // 5   yyddmm
    {1, 2, 3, 5},  // 6   yymmdd
    {7, 4, 4, 1},  // 7   dd?mm?yyyy
    {7, 2, 4, 1},  // 8   dd?mm?yy
    {7, 4, 1, 4},  // 9   mm?dd?yyyy
    {7, 2, 1, 4},  // 10  mm?dd?yy
    {1, 2, 7, 4},  // 11  yy?dd?mm
    {1, 2, 4, 7},  // 12  yy?mm?dd
    {1, 4, 7, 5},  // 13  yyyyddmm
    {1, 4, 5, 7},  // 14  yyyymmdd
    {1, 4, 9, 6},  // 15  yyyy?dd?mm
    {1, 4, 6, 9},  // 16  yyyy?mm?dd
}};

/// How a date column of the file is written. style 0: none of the sixteen, which reads as zeros.
struct DateFormat {
  std::uint8_t style = 0;
  TimeCode time = TimeCode::kNone;
};

/// The characters that a value of this format takes, its time and one blank before it included.
std::size_t DateFormatWidth(const DateFormat& format);

/// Reads a date by its format; separators are skipped by position and the parts are not checked
/// against a calendar. Blanks around the digits of a part are ignored.
/// @param century  first two digits of the current year, for two-digit years.
/// @return nullopt when a part has no digit or anything else than digits.
std::optional<SQL_TIMESTAMP_STRUCT> ReadDateValue(std::string_view value, const DateFormat& format,
                                                  int century, bool utf8);

/// Reads yyyy-mm-dd, with or without a blank and hh:mm, hh:mm:ss or hh:mm:ss and a fraction of up
/// to nine digits; blanks around it are ignored.
/// @return nullopt for anything else.
std::optional<SQL_TIMESTAMP_STRUCT> ReadIsoDate(std::string_view value);

/// The length of a date's text form, yyyy-mm-dd hh:mm:ss.000.
inline constexpr std::size_t kDateTextBytes = 23;

/// The fixed text form of a date: years as four digits, milliseconds always 000.
std::array<char, kDateTextBytes> FormatDateValue(const SQL_TIMESTAMP_STRUCT& date);

/// Puts `separator` in the place of the first "." of the value, or of the first "," when there is
/// no ".".
void ReplaceDecimalSeparator(std::string_view value, std::string_view separator, std::string& out);

/// Puts `separator` before the last `decimals` characters of the value.
/// @return false when the value has fewer characters than that.
bool InsertDecimalSeparator(std::string_view value, std::size_t decimals,
                            std::string_view separator, bool utf8, std::string& out);

/// Reads a number as ParseNumberText does; one too small for a double is zero.
/// @return nullopt when the text is anything else or the number is too large for a double.
std::optional<double> ReadUserNumber(std::string_view value, std::string_view separator);

}  // namespace imptable

#endif  // IMPORT_VALUE_CONVERSION_H_
