#ifndef HOST_COMMAND_LINE_H_
#define HOST_COMMAND_LINE_H_

#include <optional>
#include <string>
#include <vector>

#include "host/CommandRequest.h"
#include "host/HostError.h"
#include "host/HostTexts.h"

namespace imptable {

/// What the arguments ask for. The global options are set even when the other arguments are wrong:
/// the message needs the language.
struct CommandLine {
  enum class Outcome { kCommand, kHelp, kVersion, kError };

  Outcome outcome = Outcome::kCommand;
  std::optional<std::string> registry;
  std::optional<Language> language;
  CommandRequest request;          // kHelp: only its command, which is to be explained
  std::optional<HostError> error;  // kError
};

/// A command as the parser knows it.
struct CommandForm {
  std::string name;                  // such as "reg import"; empty for the program itself
  std::vector<std::string> options;  // such as "--report"
};

/// Every command and group of commands, the program first.
std::vector<CommandForm> CommandForms();

/// @param arguments  without the program's name.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

}  // namespace imptable

#endif  // HOST_COMMAND_LINE_H_
