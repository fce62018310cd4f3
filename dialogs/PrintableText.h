#ifndef DIALOGS_PRINTABLE_TEXT_H_
#define DIALOGS_PRINTABLE_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// A text from outside in a form that one line of a window can show, in the code page.
/// Shape:  one character for each character of the text, so that positions can be counted. A
/// control or format character becomes ".". A byte that is no character becomes U+FFFD, or "?"
/// where the code page lacks that.
/// @param most  characters; a longer text is cut there and ends with "...".
std::string PrintableText(const TextEncoding& encoding, std::string_view text, std::size_t most);

}  // namespace imptable

#endif  // DIALOGS_PRINTABLE_TEXT_H_
