#ifndef HOST_COMMAND_REQUEST_H_
#define HOST_COMMAND_REQUEST_H_

#include <optional>
#include <string>
#include <vector>

namespace imptable {

/// One command with what was given to it, in the system's code page. What a command doesn't take
/// is empty.
struct CommandRequest {
  std::string command;  // such as "reg import"
  std::string scenario;
  std::string task;
  std::vector<std::string> assignments;  // NAME=VALUE
  std::optional<std::string>
      name;  // of a scenario to list, of a value or of a variable; NAME=VALUE sets one
  std::string file;
  std::optional<std::string> key;
  std::optional<std::string> report;
  bool resume = false;
  bool quiet = false;
  bool json = false;
  bool show_password = false;
  bool value_from_input = false;  // of the NAME that has no "="
};

}  // namespace imptable

#endif  // HOST_COMMAND_REQUEST_H_
