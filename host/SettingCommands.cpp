#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Assignment.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/KeyName.h"
#include "host/SettingsTable.h"
#include "host/ShownValue.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/core/StampText.h"
#include "plugin/core/StoredValue.h"

namespace imptable {
namespace {

void PrintValues(const HostContext& context, const HostConsole& console, const KeyPath& key,
                 std::string_view prefix) {
  for (const NamedValue& value : context.store.Values(key)) {
    console.out << context.FromUtf8(std::string(prefix) + value.name + '=' +
                                    ShownValue(value.value))
                << '\n';
  }
}

/// @param name  in UTF-8; a part before the last "\" names a subkey of the task's key.
std::optional<RegistryValue> ReadSetting(const RegistryStore& store, const KeyPath& task,
                                         const std::string& name) {
  const std::size_t separator = name.rfind('\\');
  if (separator == std::string::npos) return store.Read(task, name);
  return store.Read(Subkey(task, name.substr(0, separator)), name.substr(separator + 1));
}

RegistryEdit SetEdit(const KeyPath& key, std::string name, RegistryValue value) {
  return {RegistryEdit::Action::kSetValue, key, std::move(name), std::move(value)};
}

/// What one NAME=VALUE writes.
/// @param text  in the system's code page.
/// @throws HostError  wrong usage.
RegistryEdit EditFor(const HostContext& context, const KeyPath& task, const std::string& text) {
  const std::optional<Assignment> assignment = AssignmentFrom(text);
  if (!assignment) {
    throw HostError(ExitCode::kUsage, HostText::kNotAnAssignment, {text, "imptable set"});
  }
  const std::optional<SettingPlace> place = FindSetting(context.ToUtf8(assignment->name));
  if (!place) {
    throw HostError(ExitCode::kUsage, HostText::kUnknownSetting, {assignment->name});
  }
  const KeyPath key = place->subkey.empty() ? task : Subkey(task, place->subkey);
  if (place->type != RegistryType::kNumber) {
    return SetEdit(key, place->name, TextValue(context.ToUtf8(assignment->value)));
  }
  const std::optional<std::int32_t> number = NumberFromText(assignment->value);
  if (!number) {
    throw HostError(ExitCode::kUsage, HostText::kNotANumber, {assignment->name, assignment->value});
  }
  return SetEdit(key, place->name, NumberValue(*number));
}

/// What the configuration dialog writes besides the settings themselves.
std::vector<RegistryEdit> EditsOfSaving(const HostContext& context, const KeyPath& task) {
  const RegistryValue now = TextValue(StampText(context.clock->Now()));
  if (context.store.KeyExists(task)) return {SetEdit(task, "ModifiéLe", now)};
  return {SetEdit(task, "Type", NumberValue(kWrapperType)), SetEdit(task, "Etat", NumberValue(0)),
          SetEdit(task, "CréeLe", now)};
}

}  // namespace

ExitCode GetSettings(HostContext& context, const CommandRequest& request,
                     const HostConsole& console) {
  context.RequireTask(request.scenario, request.task);
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  if (request.name) {
    const std::optional<RegistryValue> value =
        ReadSetting(context.store, task, context.ToUtf8(*request.name));
    if (!value) {
      throw HostError(ExitCode::kMissing, HostText::kNoSetting, {*request.name, request.task});
    }
    console.out << context.FromUtf8(ShownValue(*value)) << '\n';
    return ExitCode::kDone;
  }
  PrintValues(context, console, task, "");
  for (const std::string_view subkey : {kColumnsSubkey, kFieldsSubkey}) {
    PrintValues(context, console, Subkey(task, std::string(subkey)), std::string(subkey) + '\\');
  }
  return ExitCode::kDone;
}

ExitCode SetSettings(HostContext& context, const CommandRequest& request, const HostConsole&) {
  RequireName(request.scenario);
  RequireName(request.task);
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  std::vector<RegistryEdit> edits = EditsOfSaving(context, task);
  for (const std::string& assignment : request.assignments) {
    edits.push_back(EditFor(context, task, assignment));
  }
  context.store.Apply(edits);
  return ExitCode::kDone;
}

}  // namespace imptable
