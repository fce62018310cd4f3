#include "host/Assignment.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/InputValue.h"
#include "host/KeyName.h"
#include "host/ShownPassword.h"
#include "host/ShownValue.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/core/StoredValue.h"

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
  RequireName(*request.name);
  return Assignment{*request.name, ReadInputValue(console, context.texts, *request.name)};
}

}  // namespace

ExitCode HandleVariables(HostContext& context, const CommandRequest& request,
                         const HostConsole& console) {
  RequireName(request.scenario);
  const KeyPath variables = VariablesKey(context.ToUtf8(request.scenario));
  if (const auto assignment = RequestedAssignment(context, request, console)) {
    RequireName(assignment->name);
    context.store.Write(variables, context.ToUtf8(assignment->name),
                        TextValue(context.ToUtf8(assignment->value)));
    return ExitCode::kDone;
  }
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
  RequireName(*request.name);
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
