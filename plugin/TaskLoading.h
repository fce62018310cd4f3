#ifndef PLUGIN_TASK_LOADING_H_
#define PLUGIN_TASK_LOADING_H_

#include <string>

#include "core/ModuleCommun.h"

namespace imptable {

/// Reads a task at the current registry location and resolves its references to variables of the
/// scenario. Every value is read once; the directory then ends with the path separator.
/// @throws RuntimeFault  when a numeric setting is no number, or the host can't look up a variable.
OpenedTask OpenTask(const ModuleCommun& module, const std::string& scenario,
                    const std::string& task);

/// Makes `task` the current one, for the next run or for a look at what a run would do.
void TakeTask(ModuleCommun& module, OpenedTask task);

}  // namespace imptable

#endif  // PLUGIN_TASK_LOADING_H_
