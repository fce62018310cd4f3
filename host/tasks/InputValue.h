#ifndef HOST_TASKS_INPUT_VALUE_H_
#define HOST_TASKS_INPUT_VALUE_H_

#include <string>

#include "host/HostConsole.h"
#include "host/HostTexts.h"

namespace imptable {

/// A value that isn't to be on the command line, where other users can see it: the first line of
/// standard input without its end. On a terminal it is asked for and not shown while it is typed.
/// @param name  of the value, for the question.
/// @throws HostError  wrong usage when the input has no line; interrupted.
std::string ReadInputValue(const HostConsole& console, const HostTexts& texts,
                           const std::string& name);

}  // namespace imptable

#endif  // HOST_TASKS_INPUT_VALUE_H_
