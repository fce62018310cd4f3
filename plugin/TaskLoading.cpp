#include "plugin/TaskLoading.h"

#include <array>
#include <optional>
#include <utility>

#include "core/SettingsTable.h"
#include "core/TaskSettings.h"
#include "import/layout/ColumnLayout.h"
#include "import/ledger/TaskFiles.h"

namespace imptable {
namespace {

/// Looks variables up for one task, and notes which aren't set.
class References {
 public:
  /// Both are borrowed.
  References(const ModuleCommun& module, OpenedTask& task) : module_(module), task_(task) {}

  /// @param setting  a text that may be a reference.
  void Resolve(ImportSettings& settings, const Setting& setting) {
    std::string& text = settings.*setting.text_member;
    if (!IsVariableReference(text)) return;
    const std::string variable = text.substr(1);
    auto value = Value(variable);
    if (!value && !task_.refusal) {
      task_.refusal = MissingValue{std::string(setting.name), text, variable};
    }
    text = std::move(value).value_or("");
  }

  /// Without the option the assignments have no origins to resolve: only "Ignore" counts.
  void ResolveAssignments() {
    if (task_.parameter_option != Flag::kOn) return;
    for (const StoredAssignment& assignment : task_.assignments) {
      const std::optional<std::string> variable = VariableOfOrigin(assignment.value);
      if (!variable) continue;
      auto value = Value(*variable);
      if (!value) {
        task_.unset_origins.push_back({"Champs\\" + assignment.name, assignment.value, *variable});
      }
      task_.variables.emplace(*variable, std::move(value).value_or(""));
    }
  }

  void RequireDataSource(const std::string& resolved, const std::string& stored) {
    if (resolved.empty() && !task_.refusal) task_.refusal = MissingValue{"Base Cible", stored, {}};
  }

 private:
  std::optional<std::string> Value(const std::string& variable) const {
    return module_.host.Variable(module_.location, task_.scenario, variable);
  }

  const ModuleCommun& module_;
  OpenedTask& task_;
};

/// The settings of the host that may name a variable, in the order in which it is asked for them.
constexpr auto kResolved = std::to_array<SettingId>(
    {SettingId::kDataSource, SettingId::kLogin, SettingId::kTable, SettingId::kPassword,
     SettingId::kOwner, SettingId::kAlias, SettingId::kDirectory, SettingId::kErrorCode,
     SettingId::kKeyOrIndex});

}  // namespace

OpenedTask OpenTask(const ModuleCommun& module, const std::string& scenario,
                    const std::string& task) {
  OpenedTask opened;
  static_cast<ImportSettings&>(opened) = LoadSettings(module, task);
  LoadOwnSettings(module, task, opened);
  opened.scenario = scenario;
  opened.task = task;
  opened.assignments = LoadAssignments(module, task);

  References references(module, opened);
  const std::string stored_source = opened.data_source;
  for (const SettingId id : kResolved) references.Resolve(opened, SettingOf(id));
  for (const Setting& setting : Settings()) {
    if (setting.origin == SettingOrigin::kOwn && setting.text == SettingText::kReferable) {
      references.Resolve(opened, setting);
    }
  }
  references.ResolveAssignments();
  references.RequireDataSource(opened.data_source, stored_source);
  opened.directory = FolderOf(std::move(opened.directory));
  opened.most_errors = AsInt32(opened.error_limit, SettingOf(SettingId::kErrorLimit).name);
  return opened;
}

void TakeTask(ModuleCommun& module, OpenedTask task) {
  static_cast<OpenedTask&>(module.run) = std::move(task);
}

}  // namespace imptable
