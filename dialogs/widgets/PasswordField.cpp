#include "dialogs/widgets/PasswordField.h"

#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <utility>

#include "dialogs/widgets/FieldSize.h"

namespace imptable {

PasswordField::PasswordField(wxWindow* parent, int characters)
    : wxPanel(parent),
      masked_(new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxTE_PASSWORD)),
      plain_(new wxTextCtrl(this, wxID_ANY)),
      shown_(masked_) {
  auto* const both = new wxBoxSizer(wxHORIZONTAL);
  for (wxTextCtrl* const field : {masked_, plain_}) {
    field->SetInitialSize(FieldSize(*field, characters));
    both->Add(field, wxSizerFlags(1).Expand());
    Watch(field);
  }
  SetSizer(both);
  plain_->Hide();
}

PasswordField* PasswordField::From(wxWindow& control) {
  return dynamic_cast<PasswordField*>(&control);
}

void PasswordField::Watch(wxTextCtrl* field) {
  field->Bind(wxEVT_TEXT, [this, field](wxCommandEvent&) {
    if (field == shown_ && on_text_) on_text_(field->GetValue());
  });
  const auto on_focus = [this](bool comes) {
    return [this, comes](wxFocusEvent& event) {
      event.Skip();
      if (!swapping_ && on_focus_) on_focus_(comes);
    };
  };
  field->Bind(wxEVT_SET_FOCUS, on_focus(true));
  field->Bind(wxEVT_KILL_FOCUS, on_focus(false));
}

void PasswordField::OnText(std::function<void(const wxString& text)> handler) {
  on_text_ = std::move(handler);
}

void PasswordField::OnFocus(std::function<void(bool comes)> handler) {
  on_focus_ = std::move(handler);
}

void PasswordField::Show(const wxString& text, bool masked) {
  wxTextCtrl* const wanted = masked ? masked_ : plain_;
  if (wanted != shown_) {
    swapping_ = true;
    const bool has_focus = shown_->HasFocus();
    const long caret = shown_->GetInsertionPoint();
    wanted->ChangeValue(shown_->GetValue());
    wanted->Show();
    shown_->Hide();
    shown_ = wanted;
    Layout();
    if (has_focus) {
      shown_->SetFocus();
      shown_->SetInsertionPoint(caret);
    }
    swapping_ = false;
  }
  if (shown_->GetValue() != text) shown_->ChangeValue(text);
}

void PasswordField::SetFocus() { shown_->SetFocus(); }

bool PasswordField::Enable(bool enable) {
  masked_->Enable(enable);
  plain_->Enable(enable);
  return true;
}

}  // namespace imptable
