// What the user does in FrmImpTable, handed on to its presenter.

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <array>
#include <utility>

#include "dialogs/ImpTableControls.h"
#include "dialogs/widgets/AccessKey.h"
#include "dialogs/widgets/ImpTableWindow.h"
#include "dialogs/widgets/PasswordField.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

struct ButtonAction {
  const char* name;
  void (ImpTablePresenter::*action)();
};

constexpr auto kButtons = std::to_array<ButtonAction>({
    {"cmdSv", &ImpTablePresenter::OnVariable},
    {"cmdSv1", &ImpTablePresenter::OnSourceVariable},
    {"cmdAdminODBC", &ImpTablePresenter::OnAdministrator},
    {"Command1", &ImpTablePresenter::OnTables},
    {"cmdCle", &ImpTablePresenter::OnKeys},
    {"cmdInfo", &ImpTablePresenter::OnColumns},
    {"cmdHelp", &ImpTablePresenter::OnHelp},
    {"cmdValider", &ImpTablePresenter::Confirm},
    {"cmdApp", &ImpTablePresenter::Apply},
    {"cmdAnnuler", &ImpTablePresenter::Cancel},
});

bool IsTextControl(std::string_view name) {
  return std::any_of(kTextControls.begin(), kTextControls.end(),
                     [&](const TextControl& control) { return control.name == name; });
}

bool IsBefore(std::optional<std::uint32_t> time, std::optional<std::uint32_t> other) {
  return time && other && static_cast<std::int32_t>(*time - *other) < 0;
}

}  // namespace

void ImpTableWindow::Later(std::function<void()> work) {
  CallAfter([work = std::move(work)] { work(); });
}

void ImpTableWindow::BindTexts() {
  for (const TextControl& text : kTextControls) {
    const std::string name(text.name);
    wxWindow& control = *controls_.at(name);
    const auto typed = [this, name](const wxString& value) {
      if (!painting_) presenter_.OnText(name, text_.Stored(value));
    };
    if (auto* const password = PasswordField::From(control)) {
      password->OnText(typed);
    } else {
      control.Bind(wxEVT_TEXT, [typed](wxCommandEvent& event) { typed(event.GetString()); });
    }
  }
  controls_.at("Combo1")->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent& event) {
    Later([this, source = text_.Stored(event.GetString())] { presenter_.OnSource(source); });
  });
}

void ImpTableWindow::BindChoices() {
  for (const CheckControl& check : kCheckControls) {
    controls_.at(std::string(check.name))
        ->Bind(wxEVT_CHECKBOX, [this, name = check.name](wxCommandEvent& event) {
          presenter_.OnCheck(name, event.IsChecked());
        });
  }
  for (const OptionControl& option : kOptionControls) {
    for (int index = 0; index < option.count; ++index) {
      controls_.at(std::string(option.name) + '(' + std::to_string(index) + ')')
          ->Bind(wxEVT_RADIOBUTTON, [this, name = option.name, index](wxCommandEvent&) {
            Later([this, name, index] { presenter_.OnOption(name, index); });
          });
    }
  }
  tabs_->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
    event.Skip();
    if (painting_ || event.GetEventObject() != tabs_) return;
    Later([this, tab = event.GetSelection()] { presenter_.OnTab(tab); });
  });
}

void ImpTableWindow::BindButtons() {
  for (const ButtonAction& button : kButtons) {
    wxWindow& control = *controls_.at(button.name);
    control.Bind(wxEVT_BUTTON, [this, action = button.action](wxCommandEvent&) {
      Later([this, action, pressed = TimeOfInput()] {
        // Ignore presses made while another button was working.
        const bool begins = action != &ImpTablePresenter::Cancel;
        if (begins && IsBefore(pressed, work_done_)) return;
        (presenter_.*action)();
        work_done_ = PresentTime(*this);
      });
    });
    // OnKey has to see Enter before the button does: on Windows the button would take it.
    control.Bind(wxEVT_CHAR_HOOK, &ImpTableWindow::OnKey, this);
  }
}

void ImpTableWindow::BindFocus(wxWindow* control, const std::string& name) {
  const auto comes = [this, name] { Later([this, name] { presenter_.OnFocus(name); }); };
  const auto goes = [this, name] { Later([this, name] { presenter_.OnLeave(name); }); };
  const bool is_text = IsTextControl(name);
  if (auto* const password = PasswordField::From(*control)) {
    password->OnFocus([comes, goes](bool has) { has ? comes() : goes(); });
    return;
  }
  control->Bind(wxEVT_SET_FOCUS, [comes](wxFocusEvent& event) {
    event.Skip();
    comes();
  });
  if (!is_text) return;
  control->Bind(wxEVT_KILL_FOCUS, [goes](wxFocusEvent& event) {
    event.Skip();
    goes();
  });
}

void ImpTableWindow::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool is_enter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  wxWindow* const focus = FindFocus();
  if (is_enter && !event.HasAnyModifiers() && focus != nullptr) {
    // Enter moves to the next control, like Tab, and not to the next option, like the arrows.
    focus->Navigate(wxNavigationKeyEvent::IsForward | wxNavigationKeyEvent::FromTab);
  } else if (key == WXK_ESCAPE && !event.HasAnyModifiers()) {
    Later([this] { presenter_.Cancel(); });
  } else if (!PressByAccessKey(*this, event)) {
    event.Skip();
  }
}

}  // namespace imptable
