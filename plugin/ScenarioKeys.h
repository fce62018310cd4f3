#ifndef PLUGIN_SCENARIO_KEYS_H_
#define PLUGIN_SCENARIO_KEYS_H_

#include <string>

#include "platform/registry/Registry.h"

namespace imptable {

// Where a scenario is kept in the registry. Names aren't converted: they have to be in the code
// page of the registry that they are for.

KeyPath ScenariosKey();
KeyPath ScenarioKey(const std::string& scenario);
KeyPath TasksKey(const std::string& scenario);
KeyPath TaskKey(const std::string& scenario, const std::string& task);
KeyPath VariablesKey(const std::string& scenario);
KeyPath ConstantsKey(const std::string& scenario);

/// The key below `key`.
KeyPath Subkey(const KeyPath& key, const std::string& name);

}  // namespace imptable

#endif  // PLUGIN_SCENARIO_KEYS_H_
