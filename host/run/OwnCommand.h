#ifndef HOST_RUN_OWN_COMMAND_H_
#define HOST_RUN_OWN_COMMAND_H_

#include <string>
#include <string_view>

#include "host/CommandRequest.h"

namespace imptable {

/// The text as one word of a shell command: quoted unless it is plain.
std::string ShellWord(std::string_view word);

/// What a user types to set a value of the request's task, on the same registry.
std::string SetCommandFor(const CommandRequest& request, std::string_view assignment);

/// The same to run the task. @param option  of `run`.
std::string RunCommandFor(const CommandRequest& request, std::string_view option);

}  // namespace imptable

#endif  // HOST_RUN_OWN_COMMAND_H_
