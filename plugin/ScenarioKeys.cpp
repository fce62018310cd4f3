#include "plugin/ScenarioKeys.h"

namespace imptable {

KeyPath ScenariosKey() { return {kHkeyLocalMachine, "SOFTWARE\\KALDO\\Scenarios"}; }

KeyPath ScenarioKey(const std::string& scenario) { return Subkey(ScenariosKey(), scenario); }

KeyPath TasksKey(const std::string& scenario) { return Subkey(ScenarioKey(scenario), "Taches"); }

KeyPath TaskKey(const std::string& scenario, const std::string& task) {
  return Subkey(TasksKey(scenario), task);
}

KeyPath VariablesKey(const std::string& scenario) {
  return Subkey(ScenarioKey(scenario), "Variables");
}

KeyPath ConstantsKey(const std::string& scenario) {
  return Subkey(ScenarioKey(scenario), "Constantes");
}

KeyPath Subkey(const KeyPath& key, const std::string& name) {
  return {key.root, key.path + '\\' + name};
}

}  // namespace imptable
