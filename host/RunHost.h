#ifndef HOST_RUN_HOST_H_
#define HOST_RUN_HOST_H_

#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/CommandRequest.h"
#include "host/ExitCode.h"
#include "host/HostConsole.h"
#include "host/HostContext.h"

namespace imptable {

/// A command by its name, as "reg import".
struct HostCommand {
  std::string_view name;
  ExitCode (*carry_out)(HostContext&, const CommandRequest&, const HostConsole&);
  bool makes_registry = false;  // creates a missing registry file
};

/// A command that needs no registry.
struct PlainCommand {
  std::string_view name;
  ExitCode (*carry_out)(const HostTexts&, const HostConsole&);
};

/// One of the host's programs.
struct HostProgram {
  std::span<const HostCommand> commands;
  std::span<const PlainCommand> plain_commands = {};
  const HostWindows* windows = nullptr;  // null for a program without windows
};

/// The commands of `imptable`.
HostProgram CommandProgram();

/// A whole command line: carries out what the arguments ask for.
/// @param arguments  without the program's name.
/// @return the process's exit code. Nothing is thrown.
int RunHost(const std::vector<std::string>& arguments, const HostConsole& console,
            const HostProgram& program = CommandProgram());

/// The same without standard input and without a terminal.
int RunHost(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace imptable

#endif  // HOST_RUN_HOST_H_
