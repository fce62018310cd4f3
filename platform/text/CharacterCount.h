#ifndef PLATFORM_TEXT_CHARACTER_COUNT_H_
#define PLATFORM_TEXT_CHARACTER_COUNT_H_

#include <cstddef>
#include <string_view>

namespace imptable {

/// True when every byte is a character of its own in any code page.
bool IsAscii(std::string_view text);

/// The bytes that the first `characters` characters of `text` take; all of it when it has fewer. A
/// character is a byte, or a code point when `utf8`; a byte that is no valid UTF-8 then counts as
/// one character.
std::size_t BytesOfCharacters(std::string_view text, std::size_t characters, bool utf8);

/// The number of characters of `text`.
std::size_t CountCharacters(std::string_view text, bool utf8);

}  // namespace imptable

#endif  // PLATFORM_TEXT_CHARACTER_COUNT_H_
