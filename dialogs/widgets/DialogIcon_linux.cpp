#include <wx/icon.h>

#include "dialogs/widgets/DialogIcon.h"
#include "resources/icon.xpm"

namespace imptable {

wxIconBundle DialogIcon(const std::string& /*resource*/) { return wxIconBundle(wxIcon(icon_xpm)); }

}  // namespace imptable
