#ifndef PLATFORM_TEXT_NAME_FOLDING_H_
#define PLATFORM_TEXT_NAME_FOLDING_H_

#include <string>
#include <string_view>

namespace imptable {

/// The form in which two names that differ only in case are equal, accented letters included.
/// Takes and returns UTF-8; bytes that are no valid UTF-8 stay as they are. Independent of the
/// locale.
std::string FoldName(std::string_view name);

/// The upper-case form of a character by the system's table, whatever the locale; the character
/// itself when it has none.
char32_t UpperCase(char32_t character);

}  // namespace imptable

#endif  // PLATFORM_TEXT_NAME_FOLDING_H_
