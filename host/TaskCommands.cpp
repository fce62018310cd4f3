#include "host/Commands.h"
#include "host/HostError.h"
#include "host/ScenarioKeys.h"
#include "host/StoredValue.h"
#include "plugin/ImpTable.h"

namespace imptable {

ExitCode ShowStatus(HostContext& context, const CommandRequest& request,
                    const HostConsole& console) {
  context.RequireTask(request.scenario, request.task);
  ModuleCommun& module = context.state.commun;
  module.location = {kHkeyLocalMachine, TasksKeyPath(request.scenario)};
  console.out << AsInt32(module.ReadValue(request.task, "Etat", 0), "Etat") << '\n'
              << AsText(module.ReadValue(request.task, "ExecuteLe")) << '\n';
  return ExitCode::kDone;
}

ExitCode ListNames(HostContext& context, const CommandRequest& request,
                   const HostConsole& console) {
  KeyPath parent = ScenariosKey();
  if (request.name) {
    context.RequireScenario(*request.name);
    parent = TasksKey(context.ToUtf8(*request.name));
  }
  for (const std::string& name : context.store.SubkeyNames(parent)) {
    console.out << context.FromUtf8(name) << '\n';
  }
  return ExitCode::kDone;
}

ExitCode DeleteTask(HostContext& context, const CommandRequest& request, const HostConsole&) {
  context.RequireTask(request.scenario, request.task);
  context.store.DeleteTree(TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task)));
  return ExitCode::kDone;
}

}  // namespace imptable
