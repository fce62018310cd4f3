#include "dialogs/widgets/FormDateWindow.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>

#include "dialogs/columns/DatePattern.h"
#include "dialogs/widgets/DialogFrame.h"
#include "dialogs/widgets/FieldSize.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

constexpr int kStyleColumns = 2;
constexpr int kSeparatorWidth = 3;  // characters: room to see that only the first is kept

}  // namespace

FormDateWindow::FormDateWindow(wxWindow* parent, const ModuleCommun& module)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "FormDate"),
      module_(module),
      text_(module.platform.encoding),
      presenter_(module, *this) {
  SetTitle(Caption(Message::kDateFormat));
  SetIcons(DialogIcon());
  auto* const right = new wxBoxSizer(wxVERTICAL);
  auto* const groups = new wxBoxSizer(wxHORIZONTAL);
  groups->Add(MakeStyles(), wxSizerFlags(1).Expand().Border(wxRIGHT));
  right->Add(MakeSeparator(), wxSizerFlags().Expand().Border(wxBOTTOM));
  right->Add(MakeTime(), wxSizerFlags(1).Expand());
  groups->Add(right, wxSizerFlags().Expand());
  FinishDialog(*this, module_, groups, [this] { EndModal(wxID_OK); });
}

wxString FormDateWindow::Caption(Message message) const {
  return text_.Shown(module_.MessageText(message));
}

wxSizer* FormDateWindow::MakeStyles() {
  auto* const box = new wxStaticBoxSizer(wxVERTICAL, this, Caption(Message::kDateStyle));
  box->GetStaticBox()->SetName("Frame1");
  auto* const buttons = new wxFlexGridSizer(kStyleColumns, FromDIP(wxSize(12, 4)));
  for (std::size_t style = 0; style < kDateOptionCount; ++style) {
    auto* const button =
        new wxRadioButton(box->GetStaticBox(), wxID_ANY, text_.Shown(kDateOptionCaptions[style]),
                          wxDefaultPosition, wxDefaultSize, style == 0 ? wxRB_GROUP : 0,
                          wxDefaultValidator, wxString::Format("OptD(%zu)", style));
    button->Bind(wxEVT_RADIOBUTTON,
                 [this, style](wxCommandEvent&) { presenter_.ChooseStyle(style); });
    buttons->Add(button);
    styles_.push_back(button);
  }
  box->Add(buttons, wxSizerFlags().Border());
  return box;
}

wxSizer* FormDateWindow::MakeSeparator() {
  auto* const box = new wxStaticBoxSizer(wxVERTICAL, this, Caption(Message::kSeparator));
  wxWindow* const parent = box->GetStaticBox();
  parent->SetName("Frame2");
  without_ = new wxRadioButton(parent, wxID_ANY, Caption(Message::kWithout), wxDefaultPosition,
                               wxDefaultSize, wxRB_GROUP, wxDefaultValidator, "Option5");
  with_ = new wxRadioButton(parent, wxID_ANY, Caption(Message::kWith), wxDefaultPosition,
                            wxDefaultSize, 0, wxDefaultValidator, "Option6");
  separator_ = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0,
                              wxDefaultValidator, "TextSep");
  SetAccessibleName(*separator_, Caption(Message::kSeparator));
  separator_->SetInitialSize(FieldSize(*separator_, kSeparatorWidth));
  without_->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { presenter_.ChooseSeparator(false); });
  with_->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent&) { presenter_.ChooseSeparator(true); });
  separator_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
    presenter_.TypeSeparator(text_.Stored(separator_->GetValue()));
  });
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(with_, wxSizerFlags().CenterVertical().Border(wxRIGHT));
  row->Add(separator_, wxSizerFlags().CenterVertical());
  box->Add(without_, wxSizerFlags().Border());
  box->Add(row, wxSizerFlags().Border());
  return box;
}

wxSizer* FormDateWindow::MakeTime() {
  auto* const box = new wxStaticBoxSizer(wxVERTICAL, this, Caption(Message::kTime));
  box->GetStaticBox()->SetName("Frame3");
  for (const char* const caption : {"HH:MM", "HH:MM:SS"}) {
    const std::size_t index = times_.size();
    auto* const time =
        new wxCheckBox(box->GetStaticBox(), wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, 0,
                       wxDefaultValidator, wxString::Format("chkh1(%zu)", index));
    time->Bind(wxEVT_CHECKBOX, [this, index](wxCommandEvent& event) {
      presenter_.ToggleTime(index, event.IsChecked());
    });
    box->Add(time, wxSizerFlags().Border());
    times_.push_back(time);
  }
  return box;
}

void FormDateWindow::Show(const DateFormatState& state) {
  selected_ = styles_[state.style];
  selected_->SetValue(true);
  (state.has_separator ? with_ : without_)->SetValue(true);
  if (text_.Stored(separator_->GetValue()) != state.separator) {
    separator_->ChangeValue(text_.Shown(state.separator));
    separator_->SetInsertionPointEnd();
  }
  times_[0]->SetValue(state.time == TimeCode::kMinutes);
  times_[1]->SetValue(state.time == TimeCode::kSeconds);
}

std::optional<std::string> FormDateWindow::AskFormat(const std::string& format) {
  presenter_.Open(format);
  selected_->SetFocus();
  if (ShowModal() != wxID_OK) return std::nullopt;
  return presenter_.Confirm();
}

}  // namespace imptable
