#ifndef PLATFORM_TEXT_NAME_FOLDING_H_
#define PLATFORM_TEXT_NAME_FOLDING_H_

#include <string>
#include <string_view>

namespace imptable {

/// The form in which two names that differ only in case are equal, accented letters included.
/// Takes and returns UTF-8; bytes that are no valid UTF-8 stay as they are. Independent of the
/// locale.
std::string FoldName(std::string_view name);

}  // namespace imptable

#endif  // PLATFORM_TEXT_NAME_FOLDING_H_
