#include <wx/msw/private.h>

#include "dialogs/widgets/DialogIcon.h"

namespace imptable {

wxIconBundle DialogIcon() { return wxIconBundle("WRAPPER_ICON", wxGetInstance()); }

}  // namespace imptable
