#include "dialogs/widgets/AccessKey.h"

#include <wx/button.h>

namespace imptable {
namespace {

/// The letter after the "&" of the label; 0 when there is none.
wxChar AccessKeyOf(const wxButton& button) {
  const wxString after = button.GetLabel().AfterFirst('&');
  return after.empty() ? wxChar(0) : wxChar(wxToupper(after[0]));
}

}  // namespace

bool PressByAccessKey(const wxDialog& dialog, const wxKeyEvent& event) {
  if (event.GetModifiers() != wxMOD_ALT) return false;
  for (wxWindow* const child : dialog.GetChildren()) {
    auto* const button = dynamic_cast<wxButton*>(child);
    if (button == nullptr || !button->IsEnabled() || !button->IsShown()) continue;
    const wxChar key = AccessKeyOf(*button);
    if (key == 0 || event.GetUnicodeKey() != key) continue;
    wxCommandEvent press(wxEVT_BUTTON, button->GetId());
    press.SetEventObject(button);
    button->Command(press);
    return true;
  }
  return false;
}

}  // namespace imptable
