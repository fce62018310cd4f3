#ifndef HOST_COMMAND_REQUEST_H_
#define HOST_COMMAND_REQUEST_H_

#include <optional>
#include <string>
#include <vector>

namespace imptable {

/// One command and its arguments, in the system's code page. A member that the command doesn't take
/// is empty.
struct CommandRequest {
  std::string command;  // such as "reg import"
  std::string scenario;
  std::string task;
  std::string other_scenario;  // of the copy, or the new one of a renamed task
  std::string other_task;
  std::vector<std::string> assignments;  // NAME=VALUE
  std::vector<std::string> names;        // of values to remove
  std::optional<std::string> name;  // a scenario to list, a task to delete, a value, or a variable,
                                    // which NAME=VALUE sets
  std::string file;
  std::optional<std::string> key;
  std::optional<std::string> report;
  std::optional<std::string> registry;  // as given before the command
  bool resume = false;
  bool automatic = false;     // resumes if there is anything to resume, else begins afresh
  bool changed_file = false;  // a resume takes another data file
  bool require_file = false;  // a missing data file is an error
  bool quiet = false;
  bool json = false;
  bool show_password = false;
  bool value_from_input = false;  // standard input gives the value of the NAME without "="
  bool remove = false;            // deletes the variable NAME
  bool yes = false;               // delete without a question
  bool utf8 = false;              // an export in UTF-8
};

}  // namespace imptable

#endif  // HOST_COMMAND_REQUEST_H_
