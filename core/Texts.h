#ifndef CORE_TEXTS_H_
#define CORE_TEXTS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// A text in both languages, in UTF-8. "%1" to "%9" stand for arguments.
struct Wording {
  std::string_view french;
  std::string_view english;
};

/// The component's own texts by their names.
enum class ComponentText : std::uint8_t {
#define COMPONENT_TEXT(name, french, english) name,
#include "resources/Texts.inc"
#undef COMPONENT_TEXT
};

/// The text in the system's code page, English when `language_offset` is 10000, else French.
/// @param arguments  what stands for %1, %2 and so on, in the system's code page.
std::string InWords(const Wording& wording, std::int32_t language_offset,
                    const TextEncoding& encoding, const std::vector<std::string>& arguments = {});
std::string InWords(ComponentText text, std::int32_t language_offset, const TextEncoding& encoding,
                    const std::vector<std::string>& arguments = {});

}  // namespace imptable

#endif  // CORE_TEXTS_H_
