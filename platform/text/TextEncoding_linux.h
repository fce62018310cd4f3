#ifndef PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_
#define PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_

#include <memory>
#include <string>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// @param code_set  as nl_langinfo(CODESET) gives it. The C locale's counts as UTF-8, and so does a
/// code set that the system can't convert.
std::unique_ptr<TextEncoding> MakeTextEncoding(const std::string& code_set);

}  // namespace imptable

#endif  // PLATFORM_TEXT_TEXT_ENCODING_LINUX_H_
