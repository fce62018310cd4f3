#ifndef HOST_RUN_TASK_OPENING_H_
#define HOST_RUN_TASK_OPENING_H_

#include <string>

#include "host/HostContext.h"

namespace imptable {

/// Reads a task once, all at one moment, for everything that a command does with it: its lock, the
/// look at what a resume would do, and the run itself (`ModuleCommun::opened_task`).
/// @return whether its settings could be read; a run tells why not.
bool OpenTaskOnce(HostContext& context, const std::string& scenario, const std::string& task);

/// @throws HostError  missing, naming the setting and the way out, when the opened task can't run.
void RequireRunnable(const HostContext& context);

}  // namespace imptable

#endif  // HOST_RUN_TASK_OPENING_H_
