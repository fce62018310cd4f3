#include "plugin/TaskLoading.h"

#include <utility>

#include "plugin/core/TaskSettings.h"

namespace imptable {
namespace {

void EndWithSeparator(std::string& directory) {
  const char separator = SystemPathSeparator();
  if (!directory.ends_with('\\') && !directory.ends_with(separator)) directory += separator;
}

}  // namespace

void LoadTaskIntoRun(ModuleCommun& module) {
  RunState& run = module.run;
  ImportSettings settings = LoadSettings(module, run.task);
  for (std::string* text : {&settings.data_source, &settings.login, &settings.table,
                            &settings.password, &settings.owner, &settings.alias,
                            &settings.directory, &settings.error_code, &settings.key_or_index}) {
    if (IsVariableReference(*text)) {
      *text = module.host.Variable(module.location, run.scenario, text->substr(1));
    }
  }
  EndWithSeparator(settings.directory);
  run.data_source = std::move(settings.data_source);
  run.login = std::move(settings.login);
  run.password = std::move(settings.password);
  run.owner = std::move(settings.owner);
  run.table = std::move(settings.table);
  run.alias = std::move(settings.alias);
  run.directory = std::move(settings.directory);
  run.mode = settings.mode;
  run.deletion_mode = settings.deletion_mode;
  run.error_limit = AsInt32(settings.error_limit, "Erreurs");
  run.resume_option = settings.record_errors;
  run.empty_file_policy = settings.empty_file_policy;
  run.separator_option = settings.separator_option;
  run.null_option = settings.null_option;
  run.parameter_option = settings.parameter_option;
  run.full_file_name = settings.full_file_name;
  run.delimiter = std::move(settings.delimiter);
  run.delimited = settings.delimited;
  run.column_layout = std::move(settings.column_layout);
  run.key_or_index = std::move(settings.key_or_index);
  run.primary_key = settings.primary_key;
  run.duplicate_key = settings.duplicate_key;
  run.error_code = std::move(settings.error_code);
  run.trace_option = LoadTraceOption(module, run.task);
}

}  // namespace imptable
