#ifndef PLATFORM_TEXT_UPPER_CASE_H_
#define PLATFORM_TEXT_UPPER_CASE_H_

namespace imptable {

/// The upper-case form of a character by the system's table, whatever the locale; the character
/// itself when it has none.
char32_t UpperCase(char32_t character);

}  // namespace imptable

#endif  // PLATFORM_TEXT_UPPER_CASE_H_
