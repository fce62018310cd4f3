#include "plugin/core/TaskSettings.h"

namespace imptable {
namespace {

class SettingReader {
 public:
  SettingReader(const ModuleCommun& module, std::string_view path) : module_(module), path_(path) {}

  std::string Text(std::string_view name, std::string_view fallback = "") const {
    std::string text = AsText(module_.ReadValue(path_, name));
    return text.empty() ? std::string(fallback) : text;
  }

  std::int16_t Number(std::string_view name, std::int16_t fallback = 0) const {
    const SettingValue value = module_.ReadValue(path_, name);
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty() ? fallback : AsInt16(value, name);
  }

 private:
  const ModuleCommun& module_;
  std::string_view path_;
};

std::vector<std::string> LoadColumnLayout(const ModuleCommun& module, std::string_view task,
                                          std::int16_t count) {
  if (count < 0) {
    throw RuntimeFault(FaultNumber::kIndexOutOfRange,
                       "\"NombreColonnes\" = \"" + std::to_string(count) + '"');
  }
  std::vector<std::string> layout;
  layout.reserve(static_cast<std::size_t>(count));
  const std::string path = std::string(task) + "\\Colonnes";
  const SettingReader read(module, path);
  for (int n = 1; n <= count; ++n) layout.push_back(read.Text(std::to_string(n)));
  return layout;
}

}  // namespace

std::string TransformPassword(std::string password) { return password; }

ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task) {
  const SettingReader read(module, task);
  ImportSettings settings;
  settings.data_source = read.Text("Base Cible");
  settings.login = read.Text("Login");
  settings.password = read.Text("Password");
  if (!IsVariableReference(settings.password)) {
    settings.password = TransformPassword(std::move(settings.password));
  }
  settings.owner = read.Text("Owner");
  settings.table = read.Text("Table");
  settings.alias = read.Text("Alias");
  settings.comment = read.Text("Comment");
  settings.directory = read.Text("Dir");
  settings.mode = read.Number("Mode");
  settings.key_or_index = read.Text("Cle/Index");
  settings.primary_key = read.Number("PrimKey");
  settings.deletion_mode = read.Number("Suppression");
  settings.empty_file_policy = read.Number("SiVide");
  settings.error_limit = read.Text("Erreurs", "100");
  settings.record_errors = read.Number("RecErreurs", 1);
  settings.separator_option = read.Number("SepDec");
  settings.null_option = read.Number("Null");
  settings.column_count = read.Number("NombreColonnes");
  settings.delimiter = read.Text("DelimiteurFile", ";");
  settings.delimited = read.Number("FormatFile");
  settings.column_layout = LoadColumnLayout(module, task, settings.column_count);
  settings.parameter_option = read.Number("Param");
  settings.duplicate_key = read.Number("DupKey");
  settings.error_code = read.Text("CodErr");
  settings.full_file_name = read.Number("UseAlias");
  return settings;
}

}  // namespace imptable
