#ifndef PLATFORM_TEXT_TEXT_ENCODING_WIN32_H_
#define PLATFORM_TEXT_TEXT_ENCODING_WIN32_H_

#include <memory>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// @param code_page  its number; 65001 is UTF-8. A number that the system lacks counts as UTF-8.
std::unique_ptr<TextEncoding> MakeTextEncoding(unsigned code_page);

}  // namespace imptable

#endif  // PLATFORM_TEXT_TEXT_ENCODING_WIN32_H_
