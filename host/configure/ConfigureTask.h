#ifndef HOST_CONFIGURE_CONFIGURE_TASK_H_
#define HOST_CONFIGURE_CONFIGURE_TASK_H_

#include <string>
#include <vector>

#include "host/HostConsole.h"

namespace imptable {

/// The whole of imptable-config: opens the dialog of the task that the arguments name.
/// @param arguments  without the program's name: [--registry FILE] [--lang fr|en] SCENARIO TASK.
/// @return the process's exit code: 0 saved, 1 cancelled, else those of the other commands.
int RunConfiguration(const std::vector<std::string>& arguments, const HostConsole& console);

}  // namespace imptable

#endif  // HOST_CONFIGURE_CONFIGURE_TASK_H_
