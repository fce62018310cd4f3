#include "host/run/TaskOpening.h"

#include "host/HostError.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskLoading.h"

namespace imptable {

bool OpenTaskOnce(HostContext& context, const std::string& scenario, const std::string& task) {
  ModuleCommun& module = context.state.commun;
  module.location = TasksKey(scenario);
  module.opened_task.reset();
  const RegistryStore::Moment moment(context.store);
  try {
    module.opened_task = OpenTask(module, scenario, task);
  } catch (const RuntimeFault&) {
    return false;
  }
  return true;
}

void RequireRunnable(const HostContext& context) {
  const auto& opened = context.state.commun.opened_task;
  if (!opened || !opened->refusal) return;
  const MissingValue& refusal = *opened->refusal;
  if (refusal.variable.empty()) {
    throw HostError(ExitCode::kMissing, HostText::kNoDataSource, {opened->task});
  }
  throw HostError(
      ExitCode::kMissing, HostText::kVariableNotSet,
      {opened->task, refusal.setting, refusal.stored, refusal.variable, opened->scenario});
}

}  // namespace imptable
