#ifndef DIALOGS_WIDGETS_ACCESSIBLE_NAME_H_
#define DIALOGS_WIDGETS_ACCESSIBLE_NAME_H_

#include <wx/string.h>

class wxWindow;

namespace imptable {

/// What a screen reader calls the control.
void SetAccessibleName(wxWindow& control, const wxString& name);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_ACCESSIBLE_NAME_H_
