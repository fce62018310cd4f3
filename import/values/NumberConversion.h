#ifndef IMPORT_VALUES_NUMBER_CONVERSION_H_
#define IMPORT_VALUES_NUMBER_CONVERSION_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace imptable {

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

#endif  // IMPORT_VALUES_NUMBER_CONVERSION_H_
