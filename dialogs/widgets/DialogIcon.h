#ifndef DIALOGS_WIDGETS_DIALOG_ICON_H_
#define DIALOGS_WIDGETS_DIALOG_ICON_H_

#include <wx/iconbndl.h>

#include <string>

namespace imptable {

/// An icon of the dialogs, in the sizes that there are.
/// @param resource  its name; a system without resources has one icon for all names.
wxIconBundle DialogIcon(const std::string& resource = "ICO1");

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_DIALOG_ICON_H_
