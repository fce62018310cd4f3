#include <wx/msw/private.h>

#include "dialogs/widgets/DialogIcon.h"

namespace imptable {

wxIconBundle DialogIcon(const std::string& resource) {
  return wxIconBundle(wxString::FromAscii(resource.c_str()), wxGetInstance());
}

}  // namespace imptable
