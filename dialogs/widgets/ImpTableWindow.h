#ifndef DIALOGS_WIDGETS_IMP_TABLE_WINDOW_H_
#define DIALOGS_WIDGETS_IMP_TABLE_WINDOW_H_

#include <wx/dialog.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/ImpTablePresenter.h"
#include "dialogs/widgets/ColumnsPage.h"
#include "dialogs/widgets/PageBuilder.h"
#include "dialogs/widgets/WidgetText.h"

class wxNotebook;
class wxPanel;

namespace imptable {

/// FrmImpTable: the task configuration dialog.
class ImpTableWindow : private wxDialog, private ImpTableView, private ColumnDialogs {
 public:
  /// @param parent  the window that it is modal to; may be null.
  /// @param services  borrowed.
  ImpTableWindow(wxWindow* parent, const DialogServices& services, std::int16_t working_mode,
                 std::string task, std::string scenario);

  ImpTablePresenter& presenter() { return presenter_; }
  const ImpTablePresenter& presenter() const { return presenter_; }

  /// Loads the task and shows the dialog until it is hidden.
  void Run();

 private:
  void Show(const ImpTableState& state) override;
  void Focus(std::string_view control) override;
  void HideDialog() override;
  void RunTablePicker(TablePickerPresenter& picker) override;
  std::optional<std::string> PickVariable(const VariableListState& list) override;
  std::optional<std::string> AskDateFormat(const std::string& format) override;
  std::optional<std::string> AskNumber(NumberKind kind, const std::string& number) override;

  void MakePages();
  void MakeButtons(wxSizer* all);
  wxPanel* MakePage();

  void BindTexts();
  void BindChoices();
  void BindButtons();
  void BindFocus(wxWindow* control, const std::string& name);
  void OnKey(wxKeyEvent& event);

  /// Runs an event's work once the toolkit is done with the event.
  void Later(std::function<void()> work);

  void ShowTabs(const ImpTableState& state);
  void ShowTexts(const ImpTableState& state);
  void ShowChoices(const ImpTableState& state);
  void ShowVariableButton(const ImpTableState& state);
  bool ShowCaptions(const ImpTableState& state);
  void NameControls(const ImpTableState& state);
  void FitToCaptions();
  void FitToScreen();

  const DialogServices& services_;
  WidgetText text_;
  ImpTablePresenter presenter_;
  NamedControls controls_;
  PageBuilder build_;
  wxNotebook* tabs_ = nullptr;
  std::vector<wxPanel*> pages_;
  std::unique_ptr<ColumnsPage> columns_;
  bool painting_ = false;
  std::optional<std::uint32_t> work_done_;  // when the last button's work ended, as a time of input
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_IMP_TABLE_WINDOW_H_
