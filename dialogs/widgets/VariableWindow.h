#ifndef DIALOGS_WIDGETS_VARIABLE_WINDOW_H_
#define DIALOGS_WIDGETS_VARIABLE_WINDOW_H_

#include <wx/dialog.h>

#include <optional>
#include <string>
#include <vector>

#include "dialogs/VariableList.h"
#include "dialogs/widgets/WidgetText.h"

class wxTreeCtrl;

namespace imptable {

/// The small dialog for picking a variable or a constant of the host.
class VariableWindow : private wxDialog {
 public:
  /// @param module  borrowed.
  VariableWindow(wxWindow* parent, const ModuleCommun& module, const VariableListState& state);

  /// Shows the dialog modally. @return the picked name; nullopt when cancelled.
  std::optional<std::string> Pick();

 private:
  std::optional<std::string> Selected() const;
  void Confirm();

  WidgetText text_;
  wxTreeCtrl* names_ = nullptr;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_VARIABLE_WINDOW_H_
