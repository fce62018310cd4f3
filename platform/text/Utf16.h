#ifndef PLATFORM_TEXT_UTF16_H_
#define PLATFORM_TEXT_UTF16_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace imptable {

enum class ByteOrder { kLittleEndian, kBigEndian };

/// The UTF-8 of text files in UTF-16. Half a pair of surrogates becomes U+FFFD; an odd last byte is
/// left out.
std::string Utf8OfUtf16(std::string_view bytes, ByteOrder order);

/// The length of a text in units of UTF-16; a byte that is no valid UTF-8 counts as one.
/// @param text  in UTF-8.
std::size_t Utf16Length(std::string_view text);

}  // namespace imptable

#endif  // PLATFORM_TEXT_UTF16_H_
