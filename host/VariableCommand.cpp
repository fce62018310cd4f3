#include "host/Assignment.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/KeyName.h"
#include "host/ShownValue.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/core/StoredValue.h"

namespace imptable {

ExitCode HandleVariables(HostContext& context, const CommandRequest& request,
                         const HostConsole& console) {
  RequireName(request.scenario);
  const KeyPath variables = VariablesKey(context.ToUtf8(request.scenario));
  if (!request.name) {
    context.RequireScenario(request.scenario);
    for (const NamedValue& variable : context.store.Values(variables)) {
      console.out << context.FromUtf8(variable.name + '=' + ShownValue(variable.value)) << '\n';
    }
    return ExitCode::kDone;
  }
  if (const std::optional<Assignment> assignment = AssignmentFrom(*request.name)) {
    RequireName(assignment->name);
    context.store.Write(variables, context.ToUtf8(assignment->name),
                        TextValue(context.ToUtf8(assignment->value)));
    return ExitCode::kDone;
  }
  RequireName(*request.name);
  context.RequireScenario(request.scenario);
  const std::optional<RegistryValue> value =
      context.store.Read(variables, context.ToUtf8(*request.name));
  if (!value) {
    throw HostError(ExitCode::kMissing, HostText::kNoVariable, {*request.name, request.scenario});
  }
  console.out << context.FromUtf8(ShownValue(*value)) << '\n';
  return ExitCode::kDone;
}

}  // namespace imptable
