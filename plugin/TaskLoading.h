#ifndef PLUGIN_TASK_LOADING_H_
#define PLUGIN_TASK_LOADING_H_

#include <string>

#include "plugin/core/ModuleCommun.h"

namespace imptable {

/// Loads the settings of task `run.task` at the current registry location, resolves the references
/// to variables of `run.scenario`, and copies all into the run-wide state. The directory then ends
/// with the path separator.
/// @throws RuntimeFault  when a numeric setting is no number, or the host can't look up a variable.
void LoadTaskIntoRun(ModuleCommun& module);

}  // namespace imptable

#endif  // PLUGIN_TASK_LOADING_H_
