#ifndef CORE_NUMBER_TEXT_H_
#define CORE_NUMBER_TEXT_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace imptable {

/// A decimal number as it stands in a text: whole.fraction times ten to the exponent.
struct NumberText {
  bool negative = false;
  std::string_view whole;     // digits; `whole` or `fraction` may be empty, not both
  std::string_view fraction;  // digits
  std::int32_t exponent = 0;  // cut to a million, which is beyond any use

  bool operator==(const NumberText&) const = default;
};

/// Reads a number by those rules of the host's system that are the same for every user: white space
/// around it, one sign before or behind it, parentheses for a minus. A text with groups of digits,
/// a currency or hexadecimal digits is no number: it is more likely a mistake.
/// @return views into `text`; nullopt when `text` is no such number.
std::optional<NumberText> ParseNumberText(std::string_view text,
                                          std::string_view decimal_separator);

/// Reads digits; blanks around them are ignored.
/// @return nullopt for anything else and for a number that needs more than 32 bits.
std::optional<std::uint32_t> ReadCount(std::string_view text);

/// Reads digits; blanks around them are ignored.
/// @return nullopt for anything else and for a number that doesn't fit.
std::optional<std::int32_t> ReadWholeNumber(std::string_view text);

/// @return nullopt when the text is anything else than a decimal number of 32 bits.
std::optional<std::int32_t> NumberFromText(std::string_view text);

}  // namespace imptable

#endif  // CORE_NUMBER_TEXT_H_
