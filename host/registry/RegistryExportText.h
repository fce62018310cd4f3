#ifndef HOST_REGISTRY_REGISTRY_EXPORT_TEXT_H_
#define HOST_REGISTRY_REGISTRY_EXPORT_TEXT_H_

#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// Text that was converted up to its first flaw.
struct ConvertedText {
  std::string text;
  bool complete = true;
};

/// UTF-16LE to UTF-8. An odd byte at the end and an unpaired surrogate are flaws.
ConvertedText Utf8FromUtf16(std::string_view bytes);

/// UTF-8 to UTF-16LE; bytes that are no UTF-8 become U+FFFD.
std::string Utf16FromUtf8(std::string_view text);

/// Takes UTF-8 as it is. Anything else is a flaw.
ConvertedText CheckedUtf8(std::string_view bytes);

/// 8-bit text to UTF-8, from the system's code page. On a UTF-8 system, text that isn't UTF-8 is
/// read as Windows-1252, because Windows never exports 8-bit text in UTF-8. A byte that is no
/// character of the code page is a flaw.
ConvertedText Utf8FromAnsi(std::string_view bytes, const TextEncoding& encoding);

}  // namespace imptable

#endif  // HOST_REGISTRY_REGISTRY_EXPORT_TEXT_H_
