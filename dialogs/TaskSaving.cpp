#include "dialogs/TaskSaving.h"

#include <array>
#include <string_view>

#include "core/SettingsTable.h"
#include "core/StampText.h"
#include "core/TaskDialog.h"
#include "core/TaskSettings.h"
#include "dialogs/columns/StoredLayout.h"

namespace imptable {
namespace {

// The order in which a host's registry sees the values written: never change. "Colonnes" follows
// the first list, "Champs" the second.
constexpr auto kSavedBeforeColumns = std::to_array<SettingId>(
    {SettingId::kDataSource,   SettingId::kLogin,       SettingId::kPassword,
     SettingId::kTable,        SettingId::kOwner,       SettingId::kAlias,
     SettingId::kComment,      SettingId::kKeyOrIndex,  SettingId::kPrimaryKey,
     SettingId::kMode,         SettingId::kDeletion,    SettingId::kDuplicateKey,
     SettingId::kErrorCode,    SettingId::kDirectory,   SettingId::kErrorLimit,
     SettingId::kRecordErrors, SettingId::kErrorFile,   SettingId::kDelimiter,
     SettingId::kFileFormat,   SettingId::kColumnCount, SettingId::kEmptyFilePolicy});
constexpr auto kSavedBetweenColumns = std::to_array<SettingId>(
    {SettingId::kSeparatorOption, SettingId::kNullOption, SettingId::kParameterOption});

/// Writes values of one task until the registry refuses one.
class TaskWriter {
 public:
  TaskWriter(ModuleCommun& module, const std::string& task) : module_(module), task_(task) {}

  void Text(SettingId id, std::string_view text) {
    const std::string name = Name(id);
    if (!failure_) Note(name, module_.WriteText(task_, name, text));
  }

  void Number(SettingId id, std::int32_t number) {
    const std::string name = Name(id);
    if (!failure_) Note(name, module_.WriteNumber(task_, name, number));
  }

  /// Writes the member of the settings that belongs to `id`.
  void Member(SettingId id, const ImportSettings& settings) {
    const Setting& setting = SettingOf(id);
    if (setting.text_member != nullptr) {
      Text(id, settings.*setting.text_member);
    } else {
      Number(id, setting.number_member.get(settings));
    }
  }

  template <typename Write>
  void Subkey(std::string_view name, Write write) {
    if (!failure_) Note(name, write());
  }

  const std::optional<SaveFailure>& failure() const { return failure_; }

 private:
  std::string Name(SettingId id) const {
    return module_.platform.encoding.FromUtf8(SettingOf(id).name);
  }

  void Note(std::string_view name, std::int32_t code) {
    if (code != kRegistryOk) failure_ = SaveFailure{std::string(name), code};
  }

  ModuleCommun& module_;
  const std::string& task_;
  std::optional<SaveFailure> failure_;
};

/// What the dialog shows, as a task's settings.
ImportSettings SettingsOf(const ImpTableState& state, std::int32_t column_count) {
  const auto flag = [](bool on) { return on ? Flag::kOn : Flag::kOff; };
  ImportSettings settings;
  settings.data_source = state.Combo1;
  settings.login = state.txtLogin;
  settings.password =
      IsVariableReference(state.txtPass) ? state.txtPass : TransformPassword(state.txtPass);
  settings.table = state.txtTable;
  settings.owner = state.txtOwn;
  settings.alias = state.txtAlias;
  settings.comment = state.txtComm;
  settings.key_or_index = state.txtCle;
  settings.primary_key = flag(state.chkPrimKey);
  settings.mode = static_cast<ImportMode>(state.optBCP);
  settings.deletion = static_cast<Deletion>(state.optSup);
  settings.duplicate_key = flag(state.chkDou);
  settings.error_code = state.txtErr;
  settings.directory = state.txtRep;
  settings.error_limit = state.txtErreur;
  settings.record_errors = flag(state.chkRecup);
  settings.delimiter = state.txtDelimiteurFile;
  settings.file_format =
      state.optForm == kDelimitedButton ? FileFormat::kDelimited : FileFormat::kFixedWidth;
  settings.column_count = static_cast<std::int16_t>(column_count);
  settings.empty_file_policy = flag(state.chkSupp);
  settings.separator_option = flag(state.chkDec);
  settings.null_option = flag(state.chkNull);
  settings.parameter_option = flag(state.chkParam);
  settings.full_file_name = flag(state.OptCsv == kFullNameButton);
  return settings;
}

}  // namespace

std::optional<SaveFailure> SaveTask(ModuleCommun& module, const std::string& task, bool existing,
                                    ImpTableState& state, ColumnLayoutEditor& columns) {
  TaskWriter write(module, task);
  const std::string now = StampText(module.platform.clock.Now());
  if (existing) {
    write.Text(SettingId::kModified, now);
  } else {
    write.Number(SettingId::kStatus, 0);
    write.Text(SettingId::kCreated, now);
  }
  write.Number(SettingId::kType, kWrapperType);
  if (state.txtErreur.empty()) state.txtErreur = SettingOf(SettingId::kErrorLimit).default_text;
  const ImportSettings settings = SettingsOf(state, columns.column_count());
  for (const SettingId id : kSavedBeforeColumns) {
    if (id == SettingId::kErrorFile) {
      write.Number(id, 1);
    } else {
      write.Member(id, settings);
    }
  }
  write.Subkey(kColumnsSubkey, [&] {
    return WriteColonnes(module, task, columns.fixed_width(), columns.file_columns());
  });
  for (const SettingId id : kSavedBetweenColumns) write.Member(id, settings);
  write.Subkey(kFieldsSubkey,
               [&] { return WriteChamps(module, task, state.chkParam, columns.field_rows()); });
  write.Member(SettingId::kFullFileName, settings);
  return write.failure();
}

}  // namespace imptable
