#ifndef DIALOGS_PRINTABLE_TEXT_H_
#define DIALOGS_PRINTABLE_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// A text from outside as one line of a window can show it, in the code page.
/// Shape:  one character for one of the text, so that positions can be counted: a control or format
/// character becomes ".", a byte that is no character the code page's sign for that.
/// @param most  characters; a longer text is cut there and ends with "...".
std::string PrintableText(const TextEncoding& encoding, std::string_view text, std::size_t most);

}  // namespace imptable

#endif  // DIALOGS_PRINTABLE_TEXT_H_
