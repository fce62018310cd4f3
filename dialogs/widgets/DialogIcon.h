#ifndef DIALOGS_WIDGETS_DIALOG_ICON_H_
#define DIALOGS_WIDGETS_DIALOG_ICON_H_

#include <wx/iconbndl.h>

namespace imptable {

/// The icon of all dialogs, in the sizes that there are.
wxIconBundle DialogIcon();

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_DIALOG_ICON_H_
