#include "host/Commands.h"
#include "host/HostError.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

/// Has the component tell about the task, as the scenario host does.
ExitCode PrintFromComponent(HostContext& context, const CommandRequest& request,
                            const HostConsole& console, std::string (ImpTable::*text)()) {
  context.RequireTask(request.scenario, request.task);
  ImpTable task(context.state, nullptr);
  task.InitializeProperties(request.task, request.scenario, OffsetOf(context.texts.language()));
  context.state.commun.location = TasksKey(request.scenario);
  console.out << (task.*text)() << '\n';
  return ExitCode::kDone;
}

}  // namespace

ExitCode PrintDescription(HostContext& context, const CommandRequest& request,
                          const HostConsole& console) {
  return PrintFromComponent(context, request, console, &ImpTable::GetTaskDescription);
}

ExitCode PrintActions(HostContext& context, const CommandRequest& request,
                      const HostConsole& console) {
  return PrintFromComponent(context, request, console, &ImpTable::GetActions);
}

ExitCode ShowStatus(HostContext& context, const CommandRequest& request,
                    const HostConsole& console) {
  context.RequireTask(request.scenario, request.task);
  ModuleCommun& module = context.state.commun;
  module.location = TasksKey(request.scenario);
  console.out << AsInt32(module.ReadValue(request.task, "Etat", 0), "Etat") << '\n'
              << AsText(module.ReadValue(request.task, "ExecuteLe")) << '\n';
  return ExitCode::kDone;
}

ExitCode ListNames(HostContext& context, const CommandRequest& request,
                   const HostConsole& console) {
  KeyPath parent = ScenariosKey();
  if (!request.name) context.RequireRegistry();
  if (request.name) {
    context.RequireScenario(*request.name);
    parent = TasksKey(context.ToUtf8(*request.name));
  }
  for (const std::string& name : context.store.SubkeyNames(parent)) {
    console.out << context.FromUtf8(name) << '\n';
  }
  return ExitCode::kDone;
}

}  // namespace imptable
