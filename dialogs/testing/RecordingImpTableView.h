#ifndef DIALOGS_TESTING_RECORDING_IMP_TABLE_VIEW_H_
#define DIALOGS_TESTING_RECORDING_IMP_TABLE_VIEW_H_

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/ImpTablePresenter.h"

namespace imptable {

/// Keeps what FrmTable would show, and does what a user would do with it.
class RecordingPickerView : public TablePickerView {
 public:
  void Show(const TablePickerState& shown) override { states.push_back(shown); }
  void CloseDialog() override { ++closed; }

  std::vector<TablePickerState> states;
  int closed = 0;
};

/// A window of FrmImpTable that keeps what it is told.
class RecordingImpTableView : public ImpTableView {
 public:
  void Show(const ImpTableState& shown) override {
    state = shown;
    ++times_shown;
  }
  void Focus(std::string_view control) override { focused.emplace_back(control); }
  void HideDialog() override { ++hidden; }
  void RunTablePicker(TablePickerPresenter& presenter) override {
    ++pickers_run;
    presenter.Open(picker);
    if (in_picker) in_picker(presenter);
  }
  std::optional<std::string> PickVariable(const VariableListState& list) override {
    variable_lists.push_back(list);
    return variable;
  }

  bool IsEnabled(std::string_view control) const { return !state.disabled.contains(control); }
  std::string Caption(std::string_view control) const {
    const auto caption = state.captions.find(control);
    return caption == state.captions.end() ? "<none>" : caption->second;
  }

  ImpTableState state;
  int times_shown = 0;
  std::vector<std::string> focused;
  int hidden = 0;

  RecordingPickerView picker;
  int pickers_run = 0;
  std::function<void(TablePickerPresenter&)> in_picker;  // what the user does in it

  std::vector<VariableListState> variable_lists;
  std::optional<std::string> variable;  // what the user picks
};

}  // namespace imptable

#endif  // DIALOGS_TESTING_RECORDING_IMP_TABLE_VIEW_H_
