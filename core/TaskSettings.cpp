#include "core/TaskSettings.h"

#include <array>
#include <utility>

#include "core/SettingsTable.h"

namespace imptable {
namespace {

class SettingReader {
 public:
  /// @param faults  borrowed; receives the faults of bad numbers. When it is null they are thrown.
  SettingReader(const ModuleCommun& module, std::string_view path,
                std::vector<RuntimeFault>* faults)
      : module_(module), path_(path), faults_(faults) {}

  /// Reads one setting into its member.
  void Into(ImportSettings& settings, SettingId id) const {
    const Setting& setting = SettingOf(id);
    if (setting.text_member != nullptr) {
      settings.*setting.text_member = Text(setting.name, setting.default_text);
    } else if (id == SettingId::kColumnCount) {
      setting.number_member.set(settings, Count(setting.name));
    } else {
      setting.number_member.set(settings, Number(setting.name, setting.default_number));
    }
  }

  std::string Text(std::string_view name, std::string_view fallback = "") const {
    std::string text = AsText(module_.ReadValue(path_, name));
    return text.empty() ? std::string(fallback) : text;
  }

 private:
  std::int16_t Number(std::string_view name, std::int16_t fallback) const {
    const SettingValue value = module_.ReadValue(path_, name);
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr && text->empty()) return fallback;
    return Readable(fallback, [&] { return AsInt16(value, name); });
  }

  std::int16_t Count(std::string_view name) const {
    const std::int16_t count = Number(name, 0);
    return Readable(0, [&] {
      if (count < 0) {
        throw RuntimeFault(FaultNumber::kIndexOutOfRange,
                           '"' + std::string(name) + "\" = \"" + std::to_string(count) + '"');
      }
      return count;
    });
  }

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
  const std::string path = std::string(task) + '\\' + std::string(kColumnsSubkey);
  const SettingReader read(module, path, nullptr);
  for (int n = 1; n <= count; ++n) layout.push_back(read.Text(std::to_string(n)));
  return layout;
}

// The host's registry sees the settings read in this order: never change. The columns of the file
// are read between the two lists.
constexpr auto kReadBeforeColumns = std::to_array<SettingId>(
    {SettingId::kDataSource,      SettingId::kLogin,      SettingId::kPassword,
     SettingId::kOwner,           SettingId::kTable,      SettingId::kAlias,
     SettingId::kComment,         SettingId::kDirectory,  SettingId::kMode,
     SettingId::kKeyOrIndex,      SettingId::kPrimaryKey, SettingId::kDeletion,
     SettingId::kEmptyFilePolicy, SettingId::kErrorLimit, SettingId::kRecordErrors,
     SettingId::kSeparatorOption, SettingId::kNullOption, SettingId::kColumnCount,
     SettingId::kDelimiter,       SettingId::kFileFormat});
constexpr auto kReadAfterColumns =
    std::to_array<SettingId>({SettingId::kParameterOption, SettingId::kDuplicateKey,
                              SettingId::kErrorCode, SettingId::kFullFileName});

ImportSettings Load(const ModuleCommun& module, std::string_view task,
                    std::vector<RuntimeFault>* faults) {
  const SettingReader read(module, task, faults);
  ImportSettings settings;
  for (const SettingId id : kReadBeforeColumns) read.Into(settings, id);
  if (!IsVariableReference(settings.password)) {
    settings.password = TransformPassword(std::move(settings.password));
  }
  settings.column_layout = LoadColumnLayout(module, task, settings.column_count);
  for (const SettingId id : kReadAfterColumns) read.Into(settings, id);
  return settings;
}

}  // namespace

std::string TransformPassword(std::string password) { return password; }

void LoadOwnSettings(const ModuleCommun& module, std::string_view task, ImportSettings& settings) {
  const SettingReader read(module, task, nullptr);
  for (const Setting& setting : Settings()) {
    if (setting.origin == SettingOrigin::kOwn) read.Into(settings, setting.id);
  }
}

std::vector<StoredAssignment> LoadAssignments(const ModuleCommun& module, std::string_view task) {
  const std::string path = std::string(task) + '\\' + std::string(kFieldsSubkey);
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
