#include "dialogs/ImpTableRules.h"

#include "dialogs/ImpTableControls.h"

namespace imptable {
namespace {

constexpr int kModeCount = 5;
constexpr int kDeletionCount = 3;

void Enable(ImpTableState& state, std::string_view control, bool enabled) {
  if (enabled) {
    state.disabled.erase(std::string(control));
  } else {
    state.disabled.emplace(control);
  }
}

void EnableKey(ImpTableState& state, bool enabled) {
  for (const std::string_view control : {"txtCle", "cmdCle", "Label5"}) {
    Enable(state, control, enabled);
  }
}

int Button(int stored, int count) { return stored >= 0 && stored < count ? stored : 0; }

}  // namespace

void SetCaptions(ImpTableState& state, const ModuleCommun& module) {
  for (const CaptionControl& control : kCaptionControls) {
    state.captions[std::string(control.name)] = module.MessageText(control.message);
  }
  state.actions_header = {module.MessageText(Message::kContinueScenario),
                          module.MessageText(Message::kVariable),
                          module.MessageText(Message::kVariableValue)};
}

void SetNewTask(ImpTableState& state) {
  ChooseMode(state, kInsertButton);
  ChooseFileFormat(state, kDelimitedButton);
  Enable(state, "txtTache", false);
}

void SetTask(ImpTableState& state, const ModuleCommun& module, const ImportSettings& settings) {
  state.Combo1 = settings.data_source;
  state.txtLogin = settings.login;
  TypePassword(state, settings.password);
  state.txtTable = settings.table;
  state.txtOwn = settings.owner;
  state.txtAlias = settings.alias;
  ChooseFileOption(state, module,
                   settings.full_file_name == Flag::kOn ? kFullNameButton : kAliasButton);
  state.txtRep = settings.directory;
  ChooseMode(state, Button(static_cast<int>(settings.mode), kModeCount));
  state.chkDou = settings.duplicate_key == Flag::kOn;
  state.txtErr = settings.error_code;
  state.txtCle = settings.key_or_index;
  if (settings.primary_key != Flag::kOff) CheckPrimaryKey(state, true);
  state.optSup = Button(static_cast<int>(settings.deletion), kDeletionCount);
  state.chkSupp = settings.empty_file_policy == Flag::kOn;
  state.txtErreur = settings.error_limit;
  state.chkRecup = settings.record_errors != Flag::kOff;
  state.txtComm = settings.comment;
  state.chkDec = settings.separator_option == Flag::kOn;
  state.chkNull = settings.null_option == Flag::kOn;
  state.chkParam = settings.parameter_option == Flag::kOn;
  state.txtDelimiteurFile = settings.delimiter;
  state.textNbCol = std::to_string(settings.column_count);
  ChooseFileFormat(
      state, settings.file_format == FileFormat::kDelimited ? kDelimitedButton : kFixedButton);
}

void ChooseMode(ImpTableState& state, int index) {
  const bool inserts = index == kInsertButton;
  state.optBCP = index;
  state.chkPrimKey = false;
  Enable(state, "chkPrimKey", !inserts);
  EnableKey(state, !inserts);
  Enable(state, "chkDou", inserts);
  Enable(state, "txtErr", inserts);
  if (inserts) {
    state.txtCle.clear();
  } else {
    state.chkDou = false;
    state.txtErr.clear();
  }
}

void CheckPrimaryKey(ImpTableState& state, bool checked) {
  state.chkPrimKey = checked;
  EnableKey(state, !checked);
}

void ChooseFileFormat(ImpTableState& state, int index) {
  state.optForm = index;
  for (const std::string_view control : {"txtDelimiteurFile", "Label7"}) {
    Enable(state, control, index == kDelimitedButton);
  }
}

void ChooseFileOption(ImpTableState& state, const ModuleCommun& module, int index) {
  state.OptCsv = index;
  state.captions["Label2"] =
      module.MessageText(index == kFullNameButton ? Message::kFile : Message::kAlias);
}

void TypePassword(ImpTableState& state, const std::string& text) {
  state.txtPass = text;
  state.password_masked = !IsVariableReference(text);
}

void EmptySourceFields(ImpTableState& state) {
  for (std::string* text :
       {&state.txtLogin, &state.txtOwn, &state.txtTable, &state.txtAlias, &state.txtCle}) {
    text->clear();
  }
  TypePassword(state, {});
}

}  // namespace imptable
