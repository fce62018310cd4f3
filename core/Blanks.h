#ifndef CORE_BLANKS_H_
#define CORE_BLANKS_H_

#include <string_view>

namespace imptable {

// A blank is the space character alone; tabs and line ends are text.

constexpr std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

constexpr std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return WithoutTrailingBlanks(text);
}

constexpr bool IsBlank(std::string_view text) { return WithoutBlanks(text).empty(); }

}  // namespace imptable

#endif  // CORE_BLANKS_H_
