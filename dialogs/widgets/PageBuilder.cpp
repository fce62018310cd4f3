#include "dialogs/widgets/PageBuilder.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "dialogs/widgets/FieldSize.h"

namespace imptable {
namespace {

constexpr int kGap = 6;  // between controls, in pixels of an ordinary screen
constexpr int kVariableButtonWidth = 36;

}  // namespace

int VariableButtonWidth(const wxWindow& window) { return window.FromDIP(kVariableButtonWidth); }

void PageBuilder::Add(wxWindow* control, const std::string& name) {
  control->SetName(name);
  controls_[name] = control;
}

wxWindow* PageBuilder::Label(wxWindow* parent, const std::string& name) {
  auto* const label = new wxStaticText(parent, wxID_ANY, wxString());
  Add(label, name);
  return label;
}

wxTextCtrl* PageBuilder::Text(wxWindow* parent, const std::string& name, int characters,
                              long style) {
  auto* const text =
      new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  text->SetInitialSize(FieldSize(*text, characters));
  Add(text, name);
  return text;
}

wxButton* PageBuilder::Button(wxWindow* parent, const std::string& name, const char* caption) {
  // Captions that are given here are short.
  const bool is_small = caption != nullptr;
  auto* const button = new wxButton(parent, wxID_ANY, is_small ? caption : "-", wxDefaultPosition,
                                    wxDefaultSize, is_small ? wxBU_EXACTFIT : 0);
  Add(button, name);
  return button;
}

wxWindow* PageBuilder::Check(wxWindow* parent, const std::string& name) {
  auto* const check = new wxCheckBox(parent, wxID_ANY, wxString());
  Add(check, name);
  return check;
}

wxWindow* PageBuilder::Option(wxWindow* parent, const std::string& array, int index) {
  auto* const option = new wxRadioButton(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                         wxDefaultSize, index == 0 ? wxRB_GROUP : 0);
  Add(option, array + '(' + std::to_string(index) + ')');
  return option;
}

wxStaticBoxSizer* PageBuilder::Frame(wxWindow* parent, const std::string& name) {
  // "-" stands for the caption, which is set later. Without it the frame would leave no room for
  // one.
  auto* const frame = new wxStaticBoxSizer(wxVERTICAL, parent, "-");
  Add(frame->GetStaticBox(), name);
  return frame;
}

wxFlexGridSizer* PageBuilder::Fields(wxWindow* parent) {
  constexpr int kColumns = 3;
  auto* const fields =
      new wxFlexGridSizer(kColumns, wxSize(parent->FromDIP(kGap), parent->FromDIP(kGap)));
  fields->AddGrowableCol(1);
  return fields;
}

void PageBuilder::AddField(wxFlexGridSizer* fields, wxWindow* label, wxWindow* field) {
  fields->Add(label, wxSizerFlags().CenterVertical());
  fields->Add(field, wxSizerFlags(1).Expand().CenterVertical());
  fields->Add(VariableButtonWidth(*field), 0);
}

}  // namespace imptable
