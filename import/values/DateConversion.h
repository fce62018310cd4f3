#ifndef IMPORT_VALUES_DATE_CONVERSION_H_
#define IMPORT_VALUES_DATE_CONVERSION_H_

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "import/layout/DateFormat.h"
#include "odbc/OdbcApi.h"

namespace imptable {

/// Reads a date by its format; separators are skipped by position and the parts are not checked
/// against a calendar. Blanks around the digits of a part are ignored.
/// @param century  first two digits of the current year, for two-digit years.
/// @return nullopt when a part has no digit or anything else than digits.
std::optional<SQL_TIMESTAMP_STRUCT> ReadDateValue(std::string_view value, const DateFormat& format,
                                                  int century, bool utf8);

/// Reads yyyy-mm-dd, alone or followed by a blank and hh:mm or hh:mm:ss. The seconds may have a
/// fraction of up to nine digits. Blanks around the whole are ignored.
/// @return nullopt for anything else.
std::optional<SQL_TIMESTAMP_STRUCT> ReadIsoDate(std::string_view value);

/// The length of a date's text form, yyyy-mm-dd hh:mm:ss.000.
inline constexpr std::size_t kDateTextBytes = 23;

/// The fixed text form of a date: years as four digits, milliseconds always 000.
std::array<char, kDateTextBytes> FormatDateValue(const SQL_TIMESTAMP_STRUCT& date);

}  // namespace imptable

#endif  // IMPORT_VALUES_DATE_CONVERSION_H_
