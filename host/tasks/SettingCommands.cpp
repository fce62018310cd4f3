#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/NumberText.h"
#include "core/SettingsTable.h"
#include "core/StampText.h"
#include "core/StoredValue.h"
#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/ColumnOrder.h"
#include "host/registry/KeyName.h"
#include "host/tasks/Assignment.h"
#include "host/tasks/InputValue.h"
#include "host/tasks/SettingRules.h"
#include "host/tasks/ShownPassword.h"
#include "host/tasks/ShownValue.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

constexpr std::string_view kFormatName = "FormatFile";
constexpr std::int32_t kDelimitedFormat = 1;

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

/// @param name  in the system's code page.
/// @throws HostError  wrong usage, when no task has a value of this name.
SettingPlace RequireSetting(const HostContext& context, const std::string& name) {
  const std::optional<SettingPlace> place = FindSetting(context.ToUtf8(name));
  if (!place)
    throw HostError(ExitCode::kUsage, HostText::kUnknownSetting, {name.substr(0, name.find('='))});
  return *place;
}

KeyPath KeyOf(const KeyPath& task, const SettingPlace& place) {
  return place.subkey.empty() ? task : Subkey(task, place.subkey);
}

/// NAME=VALUE with the place that it names.
struct PlacedAssignment {
  Assignment assignment;
  SettingPlace place;
};

/// @throws HostError  wrong usage.
std::vector<PlacedAssignment> Placed(const HostContext& context,
                                     const std::vector<std::string>& texts) {
  std::vector<PlacedAssignment> placed;
  for (const std::string& text : texts) {
    std::optional<Assignment> assignment = AssignmentFrom(text);
    if (!assignment) {
      throw HostError(ExitCode::kUsage, HostText::kNotAnAssignment, {text, "imptable set"});
    }
    SettingPlace place = RequireSetting(context, assignment->name);
    placed.push_back({std::move(*assignment), std::move(place)});
  }
  return placed;
}

/// Whether the task's file is of fixed width once the assignments are made; nullopt when neither
/// the assignments nor the task tell: the layout may be set before the format.
std::optional<bool> IsFixedWidth(const HostContext& context, const KeyPath& task,
                                 const std::vector<PlacedAssignment>& assignments) {
  std::optional<std::int32_t> format;
  if (const auto stored = context.store.Read(task, kFormatName)) format = NumberOf(*stored);
  for (const PlacedAssignment& each : assignments) {
    if (each.place.name == kFormatName) format = NumberFromText(each.assignment.value);
  }
  if (!format) return std::nullopt;
  return *format != kDelimitedFormat;
}

/// What the assignments write.
/// @throws HostError  wrong usage.
std::vector<RegistryEdit> EditsFor(const HostContext& context, const KeyPath& task,
                                   const std::vector<std::string>& texts) {
  const std::vector<PlacedAssignment> assignments = Placed(context, texts);
  const SettingRules rules{*context.encoding, IsFixedWidth(context, task, assignments)};
  std::vector<RegistryEdit> edits;
  edits.reserve(assignments.size());
  for (const auto& [assignment, place] : assignments) {
    edits.push_back(SetEdit(KeyOf(task, place), place.name,
                            rules.Stored(place, assignment.name, assignment.value)));
  }
  return edits;
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
  RequireSetting(context, *bare);
  *bare += '=' + ReadInputValue(console, context.texts, *bare);
  return assignments;
}

RegistryEdit ModificationStamp(const HostContext& context, const KeyPath& task) {
  return SetEdit(task, "ModifiéLe", TextValue(StampText(context.clock->Now())));
}

/// What the configuration dialog writes besides the settings themselves.
std::vector<RegistryEdit> EditsOfSaving(const HostContext& context, const KeyPath& task) {
  if (context.store.KeyExists(task)) return {ModificationStamp(context, task)};
  return {SetEdit(task, "Type", NumberValue(kWrapperType)), SetEdit(task, "Etat", NumberValue(0)),
          SetEdit(task, "CréeLe", TextValue(StampText(context.clock->Now())))};
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
  RequireName(*context.encoding, request.scenario);
  RequireName(*context.encoding, request.task);
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  const std::vector<RegistryEdit> edits =
      EditsFor(context, task, WithInputValue(context, request, console));
  context.store.Together([&] {
    context.store.Apply(EditsOfSaving(context, task));
    context.store.Apply(edits);
    OrderColumnsOf(context.store, edits);
  });
  return ExitCode::kDone;
}

ExitCode UnsetSettings(HostContext& context, const CommandRequest& request, const HostConsole&) {
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  std::vector<RegistryEdit> edits{ModificationStamp(context, task)};
  for (const std::string& name : request.names) {
    const SettingPlace place = RequireSetting(context, name);
    edits.push_back(
        {RegistryEdit::Action::kDeleteValue, KeyOf(task, place), place.name, RegistryValue{}});
  }
  context.RequireTask(request.scenario, request.task);
  context.store.Together([&] {
    context.RequireTask(request.scenario, request.task);
    context.store.Apply(edits);
  });
  return ExitCode::kDone;
}

}  // namespace imptable
