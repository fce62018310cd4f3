#ifndef IMPORT_VALUES_KEY_TEXT_H_
#define IMPORT_VALUES_KEY_TEXT_H_

#include <span>
#include <string_view>

#include "odbc/OdbcApi.h"

namespace imptable {

/// How databases read a number in a text.
struct NumberForm {
  std::string_view separator;               // accepted in the place of "."; may be empty
  std::span<const std::string_view> words;  // read as numbers; in lower case, without a sign
};

/// Whether a text is a number to every database: white space around it, a sign before it, digits
/// with or without a decimal point and an exponent; or one of the words.
bool IsNumberText(std::string_view text, const NumberForm& form);

/// Whether a text is the number 0 or 1.
bool IsBitText(std::string_view text);

/// Whether a text is bytes in hexadecimal, two digits each.
bool IsHexText(std::string_view text);

/// Whether a text is a time of day, hh:mm or hh:mm:ss. A date of the form yyyy-mm-dd may precede
/// it.
/// @param packed  whether hhmmss, a sign and spans of up to 838:59:59 are accepted, too.
bool IsTimeText(std::string_view text, bool packed);

/// Whether each part of a date is within its bounds; months and days may be 0.
bool IsDateInBounds(const SQL_TIMESTAMP_STRUCT& date);
bool IsTimeInBounds(const SQL_TIMESTAMP_STRUCT& date);

}  // namespace imptable

#endif  // IMPORT_VALUES_KEY_TEXT_H_
