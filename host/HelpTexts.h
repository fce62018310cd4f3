#ifndef HOST_HELP_TEXTS_H_
#define HOST_HELP_TEXTS_H_

#include <string>
#include <string_view>

#include "host/HostTexts.h"

namespace imptable {

/// @param command  such as "reg import"; empty for the program as a whole.
/// @return what --help prints, in UTF-8.
std::string HelpText(std::string_view command, Language language);

}  // namespace imptable

#endif  // HOST_HELP_TEXTS_H_
