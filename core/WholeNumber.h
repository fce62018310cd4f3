#ifndef CORE_WHOLE_NUMBER_H_
#define CORE_WHOLE_NUMBER_H_

#include <cstdint>
#include <optional>
#include <string_view>

namespace imptable {

/// Reads digits; blanks around them are ignored.
/// @return nullopt for anything else and for a number that doesn't fit.
std::optional<std::int32_t> ReadWholeNumber(std::string_view text);

/// @return nullopt when the text is anything else than a decimal number of 32 bits.
std::optional<std::int32_t> NumberFromText(std::string_view text);

}  // namespace imptable

#endif  // CORE_WHOLE_NUMBER_H_
