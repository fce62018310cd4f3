#ifndef HOST_TASKS_ASSIGNMENT_H_
#define HOST_TASKS_ASSIGNMENT_H_

#include <optional>
#include <string>
#include <string_view>

namespace imptable {

/// NAME=VALUE taken apart at the first "=".
struct Assignment {
  std::string name;
  std::string value;
};

/// @return nullopt when the text holds no "=".
inline std::optional<Assignment> AssignmentFrom(std::string_view text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string_view::npos) return std::nullopt;
  return Assignment{std::string(text.substr(0, sign)), std::string(text.substr(sign + 1))};
}

}  // namespace imptable

#endif  // HOST_TASKS_ASSIGNMENT_H_
