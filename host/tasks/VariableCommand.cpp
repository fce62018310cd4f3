#include "core/StoredValue.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/KeyName.h"
#include "host/tasks/Assignment.h"
#include "host/tasks/InputValue.h"
#include "host/tasks/ShownPassword.h"
#include "host/tasks/ShownValue.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

/// The variable that is to be set, if one is.
std::optional<Assignment> RequestedAssignment(const HostContext& context,
                                              const CommandRequest& request,
                                              const HostConsole& console) {
  std::optional<Assignment> assignment = AssignmentFrom(request.name.value_or(""));
  if (!request.value_from_input) return assignment;
  if (!request.name || assignment) {
    throw HostError(ExitCode::kUsage, HostText::kNoNameForInput, {"imptable variable"});
  }
  RequireName(*context.encoding, *request.name);
  return Assignment{*request.name, ReadInputValue(console, context.texts, *request.name)};
}

/// --delete takes one name and nothing else.
void RefuseMixedRequest(const CommandRequest& request) {
  if (!request.remove) return;
  if (!request.name || request.value_from_input || AssignmentFrom(*request.name)) {
    throw HostError(ExitCode::kUsage, HostText::kNoNameToDelete, {"imptable variable"});
  }
}

ExitCode DeleteVariable(HostContext& context, const CommandRequest& request,
                        const KeyPath& variables) {
  RequireName(*context.encoding, *request.name);
  context.RequireScenario(request.scenario);
  if (!context.store.DeleteValue(variables, context.ToUtf8(*request.name))) {
    throw HostError(ExitCode::kMissing, HostText::kNoVariable, {*request.name, request.scenario});
  }
  return ExitCode::kDone;
}

}  // namespace

ExitCode HandleVariables(HostContext& context, const CommandRequest& request,
                         const HostConsole& console) {
  RequireName(*context.encoding, request.scenario);
  RefuseMixedRequest(request);
  const KeyPath variables = VariablesKey(context.ToUtf8(request.scenario));
  if (const auto assignment = RequestedAssignment(context, request, console)) {
    RequireName(*context.encoding, assignment->name);
    context.store.Write(variables, context.ToUtf8(assignment->name),
                        TextValue(context.ToUtf8(assignment->value)));
    return ExitCode::kDone;
  }
  if (request.remove) return DeleteVariable(context, request, variables);
  const PasswordVariables passwords(context.store, context.ToUtf8(request.scenario));
  const auto shown = [&](std::string_view name, const RegistryValue& value) {
    return passwords.Include(name) && !request.show_password ? HiddenForm(value)
                                                             : ShownValue(value);
  };
  if (!request.name) {
    context.RequireScenario(request.scenario);
    for (const NamedValue& variable : context.store.Values(variables)) {
      console.out << context.FromUtf8(variable.name + '=' + shown(variable.name, variable.value))
                  << '\n';
    }
    return ExitCode::kDone;
  }
  RequireName(*context.encoding, *request.name);
  context.RequireScenario(request.scenario);
  const std::string name = context.ToUtf8(*request.name);
  const std::optional<RegistryValue> value = context.store.Read(variables, name);
  if (!value) {
    throw HostError(ExitCode::kMissing, HostText::kNoVariable, {*request.name, request.scenario});
  }
  console.out << context.FromUtf8(shown(name, *value)) << '\n';
  return ExitCode::kDone;
}

}  // namespace imptable
