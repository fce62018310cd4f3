#ifndef PLUGIN_TASK_DESCRIPTION_H_
#define PLUGIN_TASK_DESCRIPTION_H_

#include <string>

#include "core/TaskSettings.h"

namespace imptable {

/// The settings of a task as an HTML fragment in the current language, for the host's style
/// classes. Values stand as they are stored: nothing is escaped, no reference is resolved.
std::string DescribeTask(const ModuleCommun& module, const std::string& task,
                         const ImportSettings& settings);

}  // namespace imptable

#endif  // PLUGIN_TASK_DESCRIPTION_H_
