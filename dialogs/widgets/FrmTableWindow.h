#ifndef DIALOGS_WIDGETS_FRM_TABLE_WINDOW_H_
#define DIALOGS_WIDGETS_FRM_TABLE_WINDOW_H_

#include <wx/dialog.h>

#include "dialogs/TablePickerPresenter.h"
#include "dialogs/widgets/WidgetText.h"

class wxListView;

namespace imptable {

/// FrmTable: the picker of a table, or of a key.
class FrmTableWindow : private wxDialog, private TablePickerView {
 public:
  /// @param module, picker  borrowed.
  FrmTableWindow(wxWindow* parent, const ModuleCommun& module, TablePickerPresenter& picker);

  /// Shows the dialog modally; the picker then knows what was picked.
  void Run();

 private:
  void Show(const TablePickerState& state) override;
  void CloseDialog() override;
  void FitColumns(const TablePickerState& state);
  void Confirm();

  WidgetText text_;
  TablePickerPresenter& picker_;
  wxListView* list_ = nullptr;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_FRM_TABLE_WINDOW_H_
