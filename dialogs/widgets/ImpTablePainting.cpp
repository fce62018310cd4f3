// Paints FrmImpTable as its state says.

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/grid.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include <array>

#include "dialogs/ImpTableControls.h"
#include "dialogs/widgets/ImpTableWindow.h"
#include "dialogs/widgets/PasswordField.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

/// A control without a caption of its own, and the control whose caption names it.
struct LabelledControl {
  const char* name;
  const char* label;
};

constexpr auto kLabelledControls = std::to_array<LabelledControl>({
    {"txtTache", "Label8"},
    {"Combo1", "Label11"},
    {"txtLogin", "Label10"},
    {"txtPass", "Label9"},
    {"txtOwn", "SSFrame1"},
    {"txtTable", "SSFrame1"},
    {"txtAlias", "Label2"},
    {"txtRep", "Label4"},
    {"txtCle", "Label5"},
    {"txtDelimiteurFile", "Label7"},
    {"textNbCol", "Label6"},
    {"UpDown1", "Label6"},
    {"txtErreur", "Label3"},
    {"txtErr", "Label12"},
    {"Grid1", "SSTab1(3)"},
    {"Grid2", "chkParam"},
});

/// A control that no caption of the dialog names, and the catalogue's text that names it.
struct NamedControl {
  const char* name;
  Message message;
};

constexpr auto kNamedControls = std::to_array<NamedControl>({
    {"cmdSv", Message::kSelectVariable},
    {"cmdSv1", Message::kSelectVariable},
    {"TextFichier", Message::kFile},
    {"List1", Message::kOrigin},
    {"Command3", Message::kOrigin},
    {"Text1", Message::kOrigin},
});

}  // namespace

void ImpTableWindow::Show(const ImpTableState& state) {
  painting_ = true;
  const bool captions_changed = ShowCaptions(state);
  ShowTabs(state);
  ShowTexts(state);
  ShowChoices(state);
  for (const auto& [name, control] : controls_) {
    const bool usable = !state.disabled.contains(name);
    if (control->IsThisEnabled() != usable) control->Enable(usable);
  }
  columns_->Show(state.columns);
  if (captions_changed) {
    for (wxPanel* const page : pages_) page->Layout();
    Layout();
  }
  ShowVariableButton(state);
  painting_ = false;
}

bool ImpTableWindow::ShowCaptions(const ImpTableState& state) {
  const wxString caption = text_.Shown(state.caption);
  if (GetTitle() != caption) {
    SetTitle(caption);
    SetIcons(DialogIcon(state.icon));
  }
  bool changed = false;
  for (const auto& [name, text] : state.captions) {
    const auto found = controls_.find(name);
    if (found == controls_.end() || found->second->GetParent() == tabs_) continue;
    const wxString label = text_.Shown(text);
    if (found->second->GetLabel() == label) continue;
    found->second->SetLabel(label);
    changed = true;
  }
  if (changed) NameControls(state);
  return changed;
}

void ImpTableWindow::NameControls(const ImpTableState& state) {
  for (const LabelledControl& control : kLabelledControls) {
    const auto caption = state.captions.find(control.label);
    if (caption == state.captions.end()) continue;
    const wxString name = wxControl::RemoveMnemonics(text_.Shown(caption->second));
    wxWindow& window = *controls_.at(control.name);
    if (auto* const password = PasswordField::From(window)) {
      for (wxWindow* const field : password->GetChildren()) SetAccessibleName(*field, name);
    } else {
      SetAccessibleName(window, name);
    }
  }
  for (const NamedControl& control : kNamedControls) {
    SetAccessibleName(*controls_.at(control.name),
                      text_.Shown(services_.module.MessageText(control.message)));
  }
}

void ImpTableWindow::ShowTabs(const ImpTableState& state) {
  const auto usable = static_cast<std::size_t>(state.usable_tabs);
  while (tabs_->GetPageCount() > usable) {
    wxWindow* const page = tabs_->GetPage(tabs_->GetPageCount() - 1);
    tabs_->RemovePage(tabs_->GetPageCount() - 1);
    page->Hide();
  }
  for (std::size_t tab = 0; tab < tabs_->GetPageCount(); ++tab) {
    const auto caption = state.captions.find("SSTab1(" + std::to_string(tab) + ')');
    if (caption != state.captions.end()) tabs_->SetPageText(tab, text_.Shown(caption->second));
  }
  if (tabs_->GetSelection() != state.tab)
    tabs_->ChangeSelection(static_cast<std::size_t>(state.tab));
}

void ImpTableWindow::ShowTexts(const ImpTableState& state) {
  auto* const sources = static_cast<wxComboBox*>(controls_.at("Combo1"));
  wxArrayString names;
  for (const std::string& source : state.sources) names.Add(text_.Shown(source));
  if (sources->GetStrings() != names) sources->Set(names);

  for (const TextControl& text : kTextControls) {
    wxWindow& control = *controls_.at(std::string(text.name));
    const wxString value = text_.Shown(state.*text.text);
    if (auto* const password = PasswordField::From(control)) {
      password->Show(value, state.password_masked);
      continue;
    }
    auto& entry = dynamic_cast<wxTextEntry&>(control);
    if (entry.GetValue() != value) entry.ChangeValue(value);
  }
}

void ImpTableWindow::ShowChoices(const ImpTableState& state) {
  for (const CheckControl& check : kCheckControls) {
    static_cast<wxCheckBox*>(controls_.at(std::string(check.name)))->SetValue(state.*check.checked);
  }
  for (const OptionControl& option : kOptionControls) {
    const int selected = state.*option.selected;
    if (selected < 0 || selected >= option.count) continue;
    auto* const button = static_cast<wxRadioButton*>(
        controls_.at(std::string(option.name) + '(' + std::to_string(selected) + ')'));
    // Setting a button that is set already could take the focus from the one that is being clicked.
    if (!button->GetValue()) button->SetValue(true);
  }
  auto* const actions = static_cast<wxGrid*>(controls_.at("grdAc"));
  for (std::size_t column = 0; column < state.actions_header.size(); ++column) {
    actions->SetColLabelValue(static_cast<int>(column), text_.Shown(state.actions_header[column]));
  }
}

void ImpTableWindow::ShowVariableButton(const ImpTableState& state) {
  controls_.at("cmdSv1")->SetToolTip(text_.Shown(state.cmdSv1_tooltip));
  wxWindow* const button = controls_.at("cmdSv");
  const auto field = controls_.find(state.variable_field);
  if (state.variable_field.empty() || field == controls_.end()) {
    button->Hide();
    return;
  }
  wxWindow* const control = field->second;
  if (button->GetParent() != control->GetParent()) button->Reparent(control->GetParent());
  const wxRect place = control->GetRect();
  button->SetSize(place.x + place.width, place.y, VariableButtonWidth(*control), place.height);
  button->MoveAfterInTabOrder(control);
  button->SetToolTip(text_.Shown(state.cmdSv_tooltip));
  button->Show();
}

}  // namespace imptable
