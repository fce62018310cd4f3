#ifndef DIALOGS_WIDGETS_COLUMNS_PAGE_H_
#define DIALOGS_WIDGETS_COLUMNS_PAGE_H_

#include <functional>
#include <memory>

#include "dialogs/columns/ColumnLayoutEditor.h"
#include "dialogs/widgets/ColumnGrid.h"
#include "dialogs/widgets/OriginPicker.h"
#include "dialogs/widgets/PageBuilder.h"

class wxPanel;
class wxTextCtrl;

namespace imptable {

/// The page of the two column grids.
class ColumnsPage {
 public:
  /// @param page  receives the controls. @param module, text  borrowed.
  /// @param editor  gives the editor that decides; called only when the user does something.
  ColumnsPage(wxPanel* page, PageBuilder& build, const ModuleCommun& module, const WidgetText& text,
              std::function<ColumnLayoutEditor&()> editor);

  void Show(const ColumnLayoutState& state);

  /// Where the focus goes for "Grid1" and "Grid2".
  void FocusFileColumns() { file_grid_->SetFocus(); }
  void FocusFields() { field_grid_->SetFocus(); }

 private:
  void AskType(const GridPlace& place);
  void AskOrigin(const GridPlace& place);

  wxPanel* page_;
  const ModuleCommun& module_;
  const WidgetText& text_;
  std::function<ColumnLayoutEditor&()> editor_;
  wxTextCtrl* first_line_;
  ColumnGrid* file_grid_;
  ColumnGrid* field_grid_;
  std::unique_ptr<OriginPicker> picker_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_COLUMNS_PAGE_H_
