#include "core/TaskSettings.h"

#include <utility>

namespace imptable {
namespace {

class SettingReader {
 public:
  /// @param faults  borrowed; null: a faulty number is thrown.
  SettingReader(const ModuleCommun& module, std::string_view path,
                std::vector<RuntimeFault>* faults)
      : module_(module), path_(path), faults_(faults) {}

  std::string Text(std::string_view name, std::string_view fallback = "") const {
    std::string text = AsText(module_.ReadValue(path_, name));
    return text.empty() ? std::string(fallback) : text;
  }

  std::int16_t Number(std::string_view name, std::int16_t fallback = 0) const {
    const SettingValue value = module_.ReadValue(path_, name);
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr && text->empty()) return fallback;
    return Readable(fallback, [&] { return AsInt16(value, name); });
  }

  std::int16_t Count(std::string_view name) const {
    const std::int16_t count = Number(name);
    return Readable(0, [&] {
      if (count < 0) {
        throw RuntimeFault(FaultNumber::kIndexOutOfRange,
                           '"' + std::string(name) + "\" = \"" + std::to_string(count) + '"');
      }
      return count;
    });
  }

 private:
  template <typename Read>
  std::int16_t Readable(std::int16_t fallback, Read read) const {
    if (faults_ == nullptr) return read();
    try {
      return read();
    } catch (const RuntimeFault& fault) {
      faults_->push_back(fault);
      return fallback;
    }
  }

  const ModuleCommun& module_;
  std::string_view path_;
  std::vector<RuntimeFault>* faults_;
};

std::vector<std::string> LoadColumnLayout(const ModuleCommun& module, std::string_view task,
                                          std::int16_t count) {
  std::vector<std::string> layout;
  layout.reserve(static_cast<std::size_t>(count));
  const std::string path = std::string(task) + "\\Colonnes";
  const SettingReader read(module, path, nullptr);
  for (int n = 1; n <= count; ++n) layout.push_back(read.Text(std::to_string(n)));
  return layout;
}

ImportSettings Load(const ModuleCommun& module, std::string_view task,
                    std::vector<RuntimeFault>* faults) {
  const SettingReader read(module, task, faults);
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
  settings.column_count = read.Count("NombreColonnes");
  settings.delimiter = read.Text("DelimiteurFile", ";");
  settings.delimited = read.Number("FormatFile");
  settings.column_layout = LoadColumnLayout(module, task, settings.column_count);
  settings.parameter_option = read.Number("Param");
  settings.duplicate_key = read.Number("DupKey");
  settings.error_code = read.Text("CodErr");
  settings.full_file_name = read.Number("UseAlias");
  return settings;
}

}  // namespace

std::string TransformPassword(std::string password) { return password; }

std::int16_t LoadTraceOption(const ModuleCommun& module, std::string_view task) {
  return SettingReader(module, task, nullptr).Number("RecTrace");
}

std::vector<StoredAssignment> LoadAssignments(const ModuleCommun& module, std::string_view task) {
  const std::string path = std::string(task) + "\\Champs";
  std::vector<StoredAssignment> assignments;
  for (std::string& name : module.ValueNames(path)) {
    std::string value = AsText(module.ReadValue(path, name));
    assignments.push_back({std::move(name), std::move(value)});
  }
  return assignments;
}

ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task) {
  return Load(module, task, nullptr);
}

ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task,
                            std::vector<RuntimeFault>& faults) {
  return Load(module, task, &faults);
}

}  // namespace imptable
