#ifndef DIALOGS_WIDGETS_SPINNER_H_
#define DIALOGS_WIDGETS_SPINNER_H_

#include <wx/string.h>

#include <functional>

class wxTextCtrl;
class wxWindow;

namespace imptable {

/// A spinner for a number that its owner keeps: it has no value and no bounds of its own. The arrow
/// keys in the field step, too.
/// @param field  borrowed; the text field that the spinner stands beside.
/// @param step  called with true for a step up.
wxWindow* MakeSpinner(wxWindow* parent, wxTextCtrl* field, const wxString& name,
                      std::function<void(bool up)> step);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_SPINNER_H_
