#include "dialogs/widgets/Spinner.h"

#include <wx/spinbutt.h>
#include <wx/textctrl.h>

#include <utility>

namespace imptable {
namespace {

// The spinner's own value stays in the middle, so that neither arrow is ever at its end.
constexpr int kMost = 2;
constexpr int kMiddle = 1;

}  // namespace

wxWindow* MakeSpinner(wxWindow* parent, wxTextCtrl* field, const wxString& name,
                      std::function<void(bool up)> step) {
  auto* const spinner = new wxSpinButton(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                         wxSP_VERTICAL | wxSP_ARROW_KEYS, name);
  spinner->SetRange(0, kMost);
  spinner->SetValue(kMiddle);
  const auto on_spin = [step](bool up) {
    return [step, up](wxSpinEvent& event) {
      event.Veto();
      step(up);
    };
  };
  spinner->Bind(wxEVT_SPIN_UP, on_spin(true));
  spinner->Bind(wxEVT_SPIN_DOWN, on_spin(false));
  field->Bind(wxEVT_KEY_DOWN, [step = std::move(step)](wxKeyEvent& event) {
    const bool plain = !event.HasAnyModifiers();
    if (plain && event.GetKeyCode() == WXK_UP) {
      step(true);
    } else if (plain && event.GetKeyCode() == WXK_DOWN) {
      step(false);
    } else {
      event.Skip();
    }
  });
  return spinner;
}

}  // namespace imptable
