#ifndef DIALOGS_WIDGETS_FORM_NOMBRE_WINDOW_H_
#define DIALOGS_WIDGETS_FORM_NOMBRE_WINDOW_H_

#include <wx/dialog.h>

#include <optional>
#include <string>

#include "dialogs/columns/NumberPresenter.h"
#include "dialogs/widgets/WidgetText.h"

class wxTextCtrl;

namespace imptable {

/// FormNombre: the number dialog.
class FormNombreWindow : private wxDialog, private NumberView {
 public:
  /// @param module, boxes  borrowed.
  FormNombreWindow(wxWindow* parent, const ModuleCommun& module, DialogBoxes& boxes,
                   NumberKind kind);

  /// Shows the dialog modally. @return the number; nullopt when cancelled.
  std::optional<std::string> AskNumber(const std::string& number);

 private:
  void Show(const NumberState& state) override;
  void Confirm();

  WidgetText text_;
  NumberPresenter presenter_;
  wxTextCtrl* number_ = nullptr;
  wxWindow* spinner_ = nullptr;
  std::optional<std::string> confirmed_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_FORM_NOMBRE_WINDOW_H_
