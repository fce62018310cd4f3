#ifndef PLUGIN_SCENARIO_ACTIONS_H_
#define PLUGIN_SCENARIO_ACTIONS_H_

#include <string>

#include "core/ModuleCommun.h"

namespace imptable {

/// The scenario actions of a task, in the host's order, as one text that the host parses: tags, CR
/// LF between the lines of an entry, and "#" after each tag and each entry. English when the
/// language offset isn't 0, else French. Empty when the task has none.
std::string DescribeActions(const ModuleCommun& module, const std::string& task);

}  // namespace imptable

#endif  // PLUGIN_SCENARIO_ACTIONS_H_
