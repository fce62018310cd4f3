#include "dialogs/widgets/FormNombreWindow.h"

#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "dialogs/widgets/DialogFrame.h"
#include "dialogs/widgets/FieldSize.h"
#include "dialogs/widgets/Spinner.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

constexpr int kNumberWidth = 10;  // characters

}  // namespace

FormNombreWindow::FormNombreWindow(wxWindow* parent, const ModuleCommun& module, DialogBoxes& boxes,
                                   NumberKind kind)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "FormNombre"),
      text_(module.platform.encoding),
      presenter_(module, boxes, *this, kind) {
  SetIcons(DialogIcon());
  number_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0,
                           wxDefaultValidator, "TextNombre");
  number_->SetInitialSize(FieldSize(*number_, kNumberWidth));
  number_->Bind(wxEVT_TEXT,
                [this](wxCommandEvent&) { presenter_.Type(text_.Stored(number_->GetValue())); });
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(number_, wxSizerFlags(1).CenterVertical());
  spinner_ = MakeSpinner(this, number_, "UpDown1",
                         [this](bool up) { up ? presenter_.StepUp() : presenter_.StepDown(); });
  row->Add(spinner_, wxSizerFlags().Expand());
  FinishDialog(*this, module, row, [this] { Confirm(); });
}

void FormNombreWindow::Show(const NumberState& state) {
  SetTitle(text_.Shown(state.title));
  if (text_.Stored(number_->GetValue()) != state.text) {
    number_->ChangeValue(text_.Shown(state.text));
  }
}

void FormNombreWindow::Confirm() {
  confirmed_ = presenter_.Confirm();
  if (confirmed_) {
    EndModal(wxID_OK);
  } else {
    number_->SetFocus();
    number_->SelectAll();
  }
}

std::optional<std::string> FormNombreWindow::AskNumber(const std::string& number) {
  confirmed_.reset();
  presenter_.Open(number);
  SetAccessibleName(*number_, GetTitle());
  SetAccessibleName(*spinner_, GetTitle());
  number_->SetFocus();
  number_->SelectAll();
  ShowModal();
  return confirmed_;
}

}  // namespace imptable
