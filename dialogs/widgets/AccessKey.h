#ifndef DIALOGS_WIDGETS_ACCESS_KEY_H_
#define DIALOGS_WIDGETS_ACCESS_KEY_H_

#include <wx/dialog.h>

namespace imptable {

/// Presses the button whose access key the event has. Looks only at the dialog's own buttons, not
/// at those inside a page or frame. Windows itself looks only beside the control that has the
/// focus.
/// @return false when there is no such button.
bool PressByAccessKey(const wxDialog& dialog, const wxKeyEvent& event);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_ACCESS_KEY_H_
