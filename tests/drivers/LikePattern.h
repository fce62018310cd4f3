#ifndef TESTS_DRIVERS_LIKEPATTERN_H_
#define TESTS_DRIVERS_LIKEPATTERN_H_

#include <string_view>

namespace imptable::scripted {

/// "%" stands for any text, "_" for any one byte; `escape` ('\0' for none) makes the byte after
/// it stand for itself.
bool IsLike(std::string_view text, std::string_view pattern, char escape);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_LIKEPATTERN_H_
