#ifndef PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_
#define PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_

#include <memory>
#include <string>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// @param code_set  as nl_langinfo(CODESET) gives it; that of the C locale and one that the system
/// can't convert count as UTF-8.
std::unique_ptr<TextEncoding> MakeTextEncoding(const std::string& code_set);

}  // namespace imptable

#endif  // PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_
