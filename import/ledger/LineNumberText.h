#ifndef IMPORT_LEDGER_LINE_NUMBER_TEXT_H_
#define IMPORT_LEDGER_LINE_NUMBER_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace imptable {

/// Digits of a number in the side files; one that needs more takes them.
inline constexpr std::size_t kNumberDigits = 8;

/// Appends a number that isn't negative, zero-padded.
void AppendNumberText(std::int32_t number, std::string& out);

/// @return false when the text is no such number, all of it.
bool ReadNumberText(std::string_view digits, std::int32_t& number);

}  // namespace imptable

#endif  // IMPORT_LEDGER_LINE_NUMBER_TEXT_H_
