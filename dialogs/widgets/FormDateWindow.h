#ifndef DIALOGS_WIDGETS_FORM_DATE_WINDOW_H_
#define DIALOGS_WIDGETS_FORM_DATE_WINDOW_H_

#include <wx/dialog.h>

#include <optional>
#include <string>
#include <vector>

#include "dialogs/columns/DateFormatPresenter.h"
#include "dialogs/widgets/WidgetText.h"

class wxCheckBox;
class wxRadioButton;
class wxTextCtrl;

namespace imptable {

/// FormDate: the date format dialog.
class FormDateWindow : private wxDialog, private DateFormatView {
 public:
  /// @param module  borrowed.
  FormDateWindow(wxWindow* parent, const ModuleCommun& module);

  /// Shows the dialog modally. @return the format text; nullopt when cancelled.
  std::optional<std::string> AskFormat(const std::string& format);

 private:
  void Show(const DateFormatState& state) override;
  wxSizer* MakeStyles();
  wxSizer* MakeSeparator();
  wxSizer* MakeTime();
  wxString Caption(Message message) const;

  const ModuleCommun& module_;
  WidgetText text_;
  DateFormatPresenter presenter_;
  std::vector<wxRadioButton*> styles_;
  wxRadioButton* selected_ = nullptr;  // of the styles
  wxRadioButton* without_ = nullptr;
  wxRadioButton* with_ = nullptr;
  wxTextCtrl* separator_ = nullptr;
  std::vector<wxCheckBox*> times_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_FORM_DATE_WINDOW_H_
