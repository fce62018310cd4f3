#ifndef DIALOGS_WIDGETS_ACCESS_KEY_H_
#define DIALOGS_WIDGETS_ACCESS_KEY_H_

#include <wx/dialog.h>

namespace imptable {

/// Presses that button of a dialog, none inside a page or frame, whose access key it is. Windows by
/// itself looks for one only beside the control that has the focus.
/// @return false when there is none such.
bool PressByAccessKey(const wxDialog& dialog, const wxKeyEvent& event);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_ACCESS_KEY_H_
