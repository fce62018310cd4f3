#ifndef CORE_NUMBER_TEXT_H_
#define CORE_NUMBER_TEXT_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace imptable {

/// A decimal number as it stands in a text: whole.fraction times ten to the exponent.
struct NumberText {
  bool negative = false;
  std::string_view whole;     // digits; either may be empty, not both
  std::string_view fraction;  // digits
  std::int32_t exponent = 0;  // one beyond any use comes out as large as that, not as written

  bool operator==(const NumberText&) const = default;
};

/// Reads a number as the host's system does, as far as that is the same for each user: white space
/// around it, one sign before or behind it, parentheses for a minus. Groups of digits, currencies
/// and hexadecimal digits make a text no number: they are likelier a mistake.
/// @return views into `text`; nullopt when it is anything else.
std::optional<NumberText> ParseNumberText(std::string_view text,
                                          std::string_view decimal_separator);

/// Reads digits; blanks around them are ignored.
/// @return nullopt for anything else and for a number that doesn't fit.
std::optional<std::int32_t> ReadWholeNumber(std::string_view text);

/// @return nullopt when the text is anything else than a decimal number of 32 bits.
std::optional<std::int32_t> NumberFromText(std::string_view text);

}  // namespace imptable

#endif  // CORE_NUMBER_TEXT_H_
