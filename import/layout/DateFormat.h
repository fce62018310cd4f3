#ifndef IMPORT_LAYOUT_DATE_FORMAT_H_
#define IMPORT_LAYOUT_DATE_FORMAT_H_

#include <array>
#include <cstddef>
#include <cstdint>

namespace imptable {

/// What stands at the end of a date value.
enum class TimeCode : std::uint8_t { kNone, kMinutes, kSeconds };  // none, hh:mm, hh:mm:ss

/// Where one date style keeps its parts: 1-based character positions. Months and days take two
/// characters, years two or four. A two-digit year gets the current century.
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

/// How a date column of the file is written. With style 0, none of the sixteen, a date is read as
/// zeros.
struct DateFormat {
  std::uint8_t style = 0;
  TimeCode time = TimeCode::kNone;
};

/// The characters that a value of this format takes, its time and one blank before it included.
std::size_t DateFormatWidth(const DateFormat& format);

}  // namespace imptable

#endif  // IMPORT_LAYOUT_DATE_FORMAT_H_
