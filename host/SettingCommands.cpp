#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Assignment.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/InputValue.h"
#include "host/KeyName.h"
#include "host/SettingsTable.h"
#include "host/ShownPassword.h"
#include "host/ShownValue.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/core/StampText.h"
#include "plugin/core/StoredValue.h"

namespace imptable {
namespace {

/// Takes and gives UTF-8.
std::string ShownSetting(const CommandRequest& request, std::string_view name,
                         const RegistryValue& value) {
  return IsPasswordName(name) && !request.show_password ? HiddenForm(value) : ShownValue(value);
}

void PrintValues(const HostContext& context, const CommandRequest& request,
                 const HostConsole& console, const KeyPath& key, const std::string& prefix) {
  for (const NamedValue& value : context.store.Values(key)) {
    const std::string name = prefix + value.name;
    console.out << context.FromUtf8(name + '=' + ShownSetting(request, name, value.value)) << '\n';
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

/// The assignments, complete with the value that standard input gives.
std::vector<std::string> WithInputValue(const HostContext& context, const CommandRequest& request,
                                        const HostConsole& console) {
  std::vector<std::string> assignments = request.assignments;
  if (!request.value_from_input) return assignments;
  const auto is_bare = [](const std::string& text) { return !AssignmentFrom(text); };
  const auto bare = std::find_if(assignments.begin(), assignments.end(), is_bare);
  if (bare == assignments.end() || std::any_of(bare + 1, assignments.end(), is_bare)) {
    throw HostError(ExitCode::kUsage, HostText::kNoNameForInput, {"imptable set"});
  }
  if (!FindSetting(context.ToUtf8(*bare))) {
    throw HostError(ExitCode::kUsage, HostText::kUnknownSetting, {*bare});
  }
  *bare += '=' + ReadInputValue(console, context.texts, *bare);
  return assignments;
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
    const std::string name = context.ToUtf8(*request.name);
    console.out << context.FromUtf8(ShownSetting(request, name, *value)) << '\n';
    return ExitCode::kDone;
  }
  PrintValues(context, request, console, task, "");
  for (const std::string_view subkey : {kColumnsSubkey, kFieldsSubkey}) {
    const std::string name(subkey);
    PrintValues(context, request, console, Subkey(task, name), name + '\\');
  }
  return ExitCode::kDone;
}

ExitCode SetSettings(HostContext& context, const CommandRequest& request,
                     const HostConsole& console) {
  RequireName(request.scenario);
  RequireName(request.task);
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  std::vector<RegistryEdit> edits = EditsOfSaving(context, task);
  for (const std::string& assignment : WithInputValue(context, request, console)) {
    edits.push_back(EditFor(context, task, assignment));
  }
  context.store.Apply(edits);
  return ExitCode::kDone;
}

}  // namespace imptable
