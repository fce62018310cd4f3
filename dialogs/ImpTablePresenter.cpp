#include "dialogs/ImpTablePresenter.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "core/NumberText.h"
#include "dialogs/BusyScope.h"
#include "dialogs/ImpTableControls.h"
#include "dialogs/ImpTableRules.h"
#include "dialogs/TaskSaving.h"

namespace imptable {
namespace {

constexpr std::string_view kDefaultSeparator = ";";

template <typename Controls>
auto FindControl(const Controls& controls, std::string_view name) {
  return std::find_if(controls.begin(), controls.end(),
                      [&](const auto& control) { return control.name == name; });
}

std::string& TextOf(ImpTableState& state, std::string_view control) {
  const auto found = FindControl(kTextControls, control);
  assert(found != kTextControls.end());
  return state.*found->text;
}

VariableKinds KindsOf(std::string_view control) {
  const auto found = FindControl(kTextControls, control);
  return found == kTextControls.end() ? VariableKinds::kNone : found->kinds;
}

}  // namespace

ImpTablePresenter::ImpTablePresenter(const DialogServices& services, ImpTableView& view,
                                     ColumnDialogs& column_dialogs, std::int16_t working_mode,
                                     std::string task, std::string scenario)
    : services_(services),
      module_(services.module),
      view_(view),
      column_dialogs_(column_dialogs),
      tasks_(module_.location),
      scenario_(std::move(scenario)),
      saved_(working_mode != 0),
      task_name_(std::move(task)) {}

void ImpTablePresenter::Handle(const std::function<void()>& event) {
  if (busy_) return;
  focus_ = {};
  {
    const BusyScope scope(busy_);
    module_.location = tasks_;
    try {
      event();
    } catch (const RuntimeFault& fault) {
      Warn(module_.FaultText(fault));
    }
    if (!IsEnabled(state_, state_.variable_field)) state_.variable_field.clear();
  }
  Show();
  if (!focus_.empty()) view_.Focus(focus_);
}

void ImpTablePresenter::Show(const ColumnLayoutState& columns) {
  const bool counted = columns.file_rows.size() != state_.columns.file_rows.size();
  state_.columns = columns;
  if (counted) ShowColumnCount();
  if (!busy_) Show();
}

void ImpTablePresenter::Warn(const std::string& text) {
  services_.boxes.Warn(text, state_.caption);
}

ConnectionFields ImpTablePresenter::Connection() const {
  return {state_.Combo1, state_.txtLogin, state_.txtPass, state_.txtOwn, state_.txtTable};
}

SourceFields ImpTablePresenter::Source() const {
  return {state_.txtRep, state_.txtAlias, state_.OptCsv == kFullNameButton,
          state_.txtDelimiteurFile};
}

void ImpTablePresenter::OnText(std::string_view control, const std::string& text) {
  std::string& held = TextOf(state_, control);
  if (held == text) return;
  const bool was_masked = state_.password_masked;
  if (control == "txtPass") {
    TypePassword(state_, text);
  } else {
    held = text;
  }
  const bool refreshed = RefreshTooltips();
  if (refreshed || was_masked != state_.password_masked) Show();
}

bool ImpTablePresenter::RefreshTooltips() {
  module_.location = tasks_;
  const auto refresh = [this](std::string& tooltip, const std::string& text) {
    std::string fresh = ReferenceTooltip(module_, scenario_, text);
    const bool changed = fresh != tooltip;
    tooltip = std::move(fresh);
    return changed;
  };
  const bool source_changed = refresh(state_.cmdSv1_tooltip, state_.Combo1);
  const bool field_changed = refresh(
      state_.cmdSv_tooltip,
      state_.variable_field.empty() ? std::string() : TextOf(state_, state_.variable_field));
  return source_changed || field_changed;
}

void ImpTablePresenter::OnFocus(std::string_view control) {
  if (control == "cmdSv" || control == "cmdSv1") return;
  Handle([&] {
    const bool takes = control != "Combo1" && KindsOf(control) != VariableKinds::kNone &&
                       IsEnabled(state_, control);
    state_.variable_field = takes ? control : std::string_view();
    RefreshTooltips();
  });
}

void ImpTablePresenter::OnLeave(std::string_view control) {
  if (control == "Combo1") {
    source_ = state_.Combo1;
  } else if (control == "txtDelimiteurFile") {
    LeaveSeparator();
  } else if (control == "textNbCol") {
    Handle([&] {
      columns_->TypeColumnCount(state_.textNbCol);
      ShowColumnCount();
    });
  }
}

void ImpTablePresenter::LeaveSeparator() {
  Handle([&] {
    if (state_.txtDelimiteurFile.empty()) state_.txtDelimiteurFile = kDefaultSeparator;
    if (state_.txtDelimiteurFile == separator_) return;
    separator_ = state_.txtDelimiteurFile;
    columns_->CountColumns(Source());
  });
}

void ImpTablePresenter::OnSource(const std::string& data_source) {
  Handle([&] { ChangeSource(data_source); });
}

void ImpTablePresenter::ChangeSource(const std::string& data_source) {
  state_.Combo1 = data_source;
  RefreshTooltips();
  if (data_source == source_) return;
  source_ = data_source;
  if (services_.boxes.Ask(module_.MessageText(Message::kInitializeParameters), state_.caption)) {
    EmptySourceFields(state_);
    RefreshTooltips();
  }
}

void ImpTablePresenter::OnCheck(std::string_view control, bool checked) {
  Handle([&] {
    const auto found = FindControl(kCheckControls, control);
    assert(found != kCheckControls.end());
    if (!IsEnabled(state_, control) || state_.*found->checked == checked) return;
    state_.*found->checked = checked;
    if (control == "chkPrimKey") CheckPrimaryKey(state_, checked);
  });
}

void ImpTablePresenter::OnOption(std::string_view control, int index) {
  Handle([&] {
    const auto found = FindControl(kOptionControls, control);
    assert(found != kOptionControls.end() && index >= 0 && index < found->count);
    if (state_.*found->selected == index) return;
    state_.*found->selected = index;
    if (control == "optBCP") {
      ChooseMode(state_, index);
    } else if (control == "OptCsv") {
      ChooseFileOption(state_, module_, index);
    } else if (control == "optForm") {
      ChooseFileFormat(state_, index);
      columns_->ChooseFileFormat(index == kFixedButton, Source());
    }
    RefreshTooltips();
  });
}

void ImpTablePresenter::OnTab(int tab) {
  Handle([&] {
    if (tab < 0 || tab >= state_.usable_tabs || tab == state_.tab) return;
    state_.tab = tab;
    columns_->ShowFirstLine(Source());
  });
}

void ImpTablePresenter::OnSpin(bool up) {
  Handle([&] {
    TakeColumnCount();
    columns_->StepColumnCount(up);
    ShowColumnCount();
  });
}

void ImpTablePresenter::ShowColumnCount() {
  state_.textNbCol = std::to_string(columns_->column_count());
}

void ImpTablePresenter::TakeColumnCount() {
  const auto typed = ReadWholeNumber(state_.textNbCol);
  if (!typed || *typed > kMostFileColumns) return;
  if (*typed != columns_->column_count()) columns_->TypeColumnCount(state_.textNbCol);
}

void ImpTablePresenter::OnVariable() {
  if (!state_.variable_field.empty()) InsertVariable(state_.variable_field);
}

void ImpTablePresenter::OnSourceVariable() { InsertVariable("Combo1"); }

void ImpTablePresenter::InsertVariable(std::string_view control) {
  const std::string field(control);
  Handle([&] {
    focus_ = FindControl(kTextControls, field)->name;
    const std::optional<std::string> name =
        view_.PickVariable(ListVariables(module_, scenario_, KindsOf(field)));
    if (!name) return;
    const std::string reference = '@' + *name;
    if (field == "Combo1") {
      ChangeSource(reference);
    } else if (field == "txtPass") {
      TypePassword(state_, reference);
    } else {
      TextOf(state_, field) = reference;
    }
    RefreshTooltips();
  });
}

void ImpTablePresenter::OnAdministrator() {
  Handle([&] {
    try {
      services_.administrator.RunAndWait();
    } catch (const RuntimeFault& fault) {
      Warn(module_.FaultText(fault));
    }
    module_.platform.message_loop.Yield();
    FillSources();
  });
}

void ImpTablePresenter::OnTables() {
  Handle([&] {
    if (Refuses(CheckSource(state_))) return;
    if (const std::optional<std::string> line = Pick(PickerMode::kTables)) {
      const std::size_t tab = line->find('\t');
      state_.txtOwn = tab == std::string::npos ? std::string() : line->substr(0, tab);
      state_.txtTable = tab == std::string::npos ? *line : line->substr(tab + 1);
    }
  });
}

void ImpTablePresenter::OnKeys() {
  Handle([&] {
    if (!IsEnabled(state_, "cmdCle") || Refuses(CheckSourceAndTable(state_))) return;
    if (const std::optional<std::string> line = Pick(PickerMode::kKeys)) state_.txtCle = *line;
  });
}

std::optional<std::string> ImpTablePresenter::Pick(PickerMode mode) {
  TablePickerPresenter picker(services_, mode, scenario_, Connection());
  view_.RunTablePicker(picker);
  return picker.picked();
}

void ImpTablePresenter::OnColumns() {
  Handle([&] {
    if (Refuses(CheckSourceAndTable(state_))) return;
    const Hourglass hourglass(module_.platform.mouse_pointer);
    columns_->ListTableColumns(Connection());
  });
}

void ImpTablePresenter::OnHelp() {
  Handle([&] {
    if (services_.open_help) services_.open_help();
  });
}

bool ImpTablePresenter::Refuses(const std::optional<Refusal>& refusal) {
  if (!refusal) return false;
  Warn(module_.MessageText(refusal->message));
  state_.tab = refusal->tab;
  focus_ = refusal->control;
  return true;
}

bool ImpTablePresenter::RefusesColumns() {
  if (columns_->CheckColumns(state_.chkParam)) return false;
  state_.tab = kColumnsTab;
  focus_ = state_.columns.selected_field_row ? "Grid2" : "Grid1";
  return true;
}

bool ImpTablePresenter::Save() {
  bool done = false;
  Handle([&] {
    if (state_.txtDelimiteurFile.empty()) state_.txtDelimiteurFile = kDefaultSeparator;
    const std::string& question = services_.question_without_user;
    const UserName user_name = question.empty() ? UserName::kWanted : UserName::kMayBeMissing;
    if (Refuses(CheckTask(module_, saved_ || begun_, state_, user_name))) return;
    if (state_.txtLogin.empty() && !services_.boxes.Ask(question, state_.caption)) {
      state_.tab = kParametersTab;
      focus_ = "txtLogin";
      return;
    }
    columns_->TypeColumnCount(state_.textNbCol);
    ShowColumnCount();
    if (RefusesColumns()) return;
    const std::string name = state_.txtTache;
    if (const auto failure = SaveTask(module_, name, saved_, state_, *columns_)) {
      begun_ = true;
      Warn(module_.MessageText(Message::kRegistryFailure) + " : \"" + failure->name + "\" (" +
           std::to_string(failure->code) + ')');
      return;
    }
    task_name_ = name;
    saved_ = true;
    saved_now_ = true;
    done = true;
  });
  return done;
}

void ImpTablePresenter::Confirm() {
  if (Save()) view_.HideDialog();
}

void ImpTablePresenter::Apply() { Save(); }

void ImpTablePresenter::Cancel() {
  if (!busy_) view_.HideDialog();
}

}  // namespace imptable
