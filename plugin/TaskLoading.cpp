#include "plugin/TaskLoading.h"

#include <array>
#include <optional>
#include <utility>

#include "core/TaskSettings.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {
namespace {

void EndWithSeparator(std::string& directory) {
  const char separator = SystemPathSeparator();
  if (!directory.ends_with('\\') && !directory.ends_with(separator)) directory += separator;
}

/// Looks variables up for one task, and notes those that aren't set.
class References {
 public:
  /// Both are borrowed.
  References(const ModuleCommun& module, OpenedTask& task) : module_(module), task_(task) {}

  /// @param setting  the name of the value that holds the reference.
  void Resolve(std::string& text, std::string_view setting) {
    if (!IsVariableReference(text)) return;
    const std::string variable = text.substr(1);
    auto value = Value(variable);
    if (!value && !task_.refusal) {
      task_.refusal = MissingValue{std::string(setting), text, variable};
    }
    text = std::move(value).value_or("");
  }

  /// Without the option only "Ignore" counts.
  void ResolveAssignments() {
    if (task_.parameter_option != 1) return;
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

}  // namespace

OpenedTask OpenTask(const ModuleCommun& module, const std::string& scenario,
                    const std::string& task) {
  ImportSettings settings = LoadSettings(module, task);
  OpenedTask opened;
  opened.scenario = scenario;
  opened.task = task;
  opened.trace_option = LoadTraceOption(module, task);
  opened.assignments = LoadAssignments(module, task);

  opened.parameter_option = settings.parameter_option;

  References references(module, opened);
  const std::array<std::pair<std::string*, std::string_view>, 9> texts{
      {{&settings.data_source, "Base Cible"},
       {&settings.login, "Login"},
       {&settings.table, "Table"},
       {&settings.password, "Password"},
       {&settings.owner, "Owner"},
       {&settings.alias, "Alias"},
       {&settings.directory, "Dir"},
       {&settings.error_code, "CodErr"},
       {&settings.key_or_index, "Cle/Index"}}};
  const std::string stored_source = settings.data_source;
  for (const auto& [text, name] : texts) references.Resolve(*text, name);
  references.ResolveAssignments();
  references.RequireDataSource(settings.data_source, stored_source);
  EndWithSeparator(settings.directory);

  opened.data_source = std::move(settings.data_source);
  opened.login = std::move(settings.login);
  opened.password = std::move(settings.password);
  opened.owner = std::move(settings.owner);
  opened.table = std::move(settings.table);
  opened.alias = std::move(settings.alias);
  opened.directory = std::move(settings.directory);
  opened.mode = settings.mode;
  opened.deletion_mode = settings.deletion_mode;
  opened.error_limit = AsInt32(settings.error_limit, "Erreurs");
  opened.resume_option = settings.record_errors;
  opened.empty_file_policy = settings.empty_file_policy;
  opened.separator_option = settings.separator_option;
  opened.null_option = settings.null_option;
  opened.full_file_name = settings.full_file_name;
  opened.delimiter = std::move(settings.delimiter);
  opened.delimited = settings.delimited;
  opened.column_layout = std::move(settings.column_layout);
  opened.key_or_index = std::move(settings.key_or_index);
  opened.primary_key = settings.primary_key;
  opened.duplicate_key = settings.duplicate_key;
  opened.error_code = std::move(settings.error_code);
  return opened;
}

void TakeTask(ModuleCommun& module, OpenedTask task) {
  static_cast<OpenedTask&>(module.run) = std::move(task);
}

}  // namespace imptable
