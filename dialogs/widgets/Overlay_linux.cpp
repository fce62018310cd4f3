#include <wx/listbox.h>

#include "dialogs/widgets/Overlay.h"

namespace imptable {

// On Linux every window does this by itself.
void LetLieUnderOthers(wxWindow& /*window*/) {}

int HeightOfEntries(const wxListBox& list, int count) {
  constexpr int kBorders = 7;  // above and below the letters, on an ordinary screen
  return count * (list.GetCharHeight() + list.FromDIP(kBorders));
}

}  // namespace imptable
