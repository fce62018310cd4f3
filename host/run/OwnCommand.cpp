#include "host/run/OwnCommand.h"

namespace imptable {
namespace {

constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./:,=+%@";

std::string CommandFor(const CommandRequest& request, std::string_view command,
                       std::string_view word) {
  std::string text = "imptable ";
  if (request.registry) text += "--registry " + ShellWord(*request.registry) + ' ';
  text.append(command).append(" ");
  // A name that begins with a dash would be taken for an option.
  if (request.scenario.starts_with('-') || request.task.starts_with('-')) {
    const bool is_option = word.starts_with('-');
    return text + (is_option ? ShellWord(word) + " -- " : "-- ") + ShellWord(request.scenario) +
           ' ' + ShellWord(request.task) + (is_option ? "" : ' ' + ShellWord(word));
  }
  return text + ShellWord(request.scenario) + ' ' + ShellWord(request.task) + ' ' + ShellWord(word);
}

}  // namespace

std::string ShellWord(std::string_view word) {
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string_view::npos) {
    return std::string(word);
  }
  std::string quoted = "'";
  for (const char each : word) {
    if (each == '\'') {
      quoted += "'\\''";
    } else {
      quoted += each;
    }
  }
  return quoted + '\'';
}

std::string SetCommandFor(const CommandRequest& request, std::string_view assignment) {
  return CommandFor(request, "set", assignment);
}

std::string RunCommandFor(const CommandRequest& request, std::string_view option) {
  return CommandFor(request, "run", option);
}

}  // namespace imptable
