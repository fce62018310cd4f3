// How the task dialog opens.

#include "dialogs/BusyScope.h"
#include "dialogs/ImpTablePresenter.h"
#include "dialogs/ImpTableRules.h"

namespace imptable {
namespace {

constexpr std::string_view kIcon = "ICO1";

}  // namespace

void ImpTablePresenter::Load() {
  module_.location = tasks_;
  Fill();
  Show();
}

void ImpTablePresenter::Fill() {
  const BusyScope scope(busy_);
  if (state_.caption.empty()) state_.caption = module_.MessageText(Message::kTitle);
  if (state_.icon.empty()) state_.icon = kIcon;
  SetCaptions(state_, module_);
  FillSources();
  ColumnLayoutView& columns_view = *this;
  columns_ = std::make_unique<ColumnLayoutEditor>(module_, scenario_, state_.caption,
                                                  services_.boxes, columns_view, column_dialogs_);
  SetNewTask(state_);
  columns_->Open();
  if (saved_) LoadTask();
  state_.txtTache = task_name_;
  state_.tab = kParametersTab;
  state_.usable_tabs = kCommentTab;
  if (!services_.open_help) state_.disabled.emplace("cmdHelp");
  source_ = state_.Combo1;
  separator_ = state_.txtDelimiteurFile;
  RefreshTooltips();
}

void ImpTablePresenter::LoadTask() {
  std::vector<RuntimeFault> faults;
  const ImportSettings settings = LoadSettings(module_, task_name_, faults);
  if (!faults.empty()) {
    std::string text = module_.MessageText(Message::kRegistryFailure);
    for (const RuntimeFault& fault : faults) text += '\n' + module_.FaultText(fault);
    Warn(text);
  }
  SetTask(state_, module_, settings);
  columns_->Load(task_name_, state_.optForm == kFixedButton, settings.column_count);
  const Hourglass hourglass(module_.platform.mouse_pointer);
  columns_->RefreshKeyMarks(Connection());
}

void ImpTablePresenter::FillSources() {
  state_.sources.clear();
  ListDataSources([this](const std::string& name) { state_.sources.push_back(name); });
}

}  // namespace imptable
