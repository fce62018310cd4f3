#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/wrapsizer.h>

#include "dialogs/widgets/Pages.h"
#include "dialogs/widgets/PasswordField.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

constexpr int kNameWidth = 24;  // characters
constexpr int kOwnerWidth = 12;
constexpr int kModeCount = 5;

wxSizer* MakeSource(wxWindow* page, PageBuilder& build) {
  wxStaticBoxSizer* const frame = build.Frame(page, "SSFrame3");
  wxWindow* const parent = PageBuilder::Parent(frame);
  wxFlexGridSizer* const fields = PageBuilder::Fields(page);

  wxWindow* const source_label = build.Label(parent, "Label11");
  auto* const source = new wxComboBox(parent, wxID_ANY, wxString(), wxDefaultPosition,
                                      wxDefaultSize, 0, nullptr, wxCB_DROPDOWN);
  source->SetInitialSize(source->GetSizeFromTextSize(source->GetCharWidth() * kNameWidth));
  MakeOneStop(*source);
  build.Add(source, "Combo1");
  wxButton* const variable = build.Button(parent, "cmdSv1", "@");
  variable->SetInitialSize(wxSize(VariableButtonWidth(*page), source->GetBestSize().y));
  fields->Add(source_label, wxSizerFlags().CenterVertical());
  fields->Add(source, wxSizerFlags(1).Expand().CenterVertical());
  fields->Add(variable, wxSizerFlags().CenterVertical());

  wxWindow* const user_label = build.Label(parent, "Label10");
  build.AddField(fields, user_label, build.Text(parent, "txtLogin", kNameWidth));
  wxWindow* const password_label = build.Label(parent, "Label9");
  auto* const password = new PasswordField(parent, kNameWidth);
  build.Add(password, "txtPass");
  build.AddField(fields, password_label, password);

  frame->Add(fields, wxSizerFlags().Expand().Border());
  frame->Add(build.Button(parent, "cmdAdminODBC"), wxSizerFlags().Right().Border());
  return frame;
}

wxSizer* MakeTable(wxWindow* page, PageBuilder& build) {
  wxStaticBoxSizer* const frame = build.Frame(page, "SSFrame1");
  wxWindow* const parent = PageBuilder::Parent(frame);
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(build.Text(parent, "txtOwn", kOwnerWidth), wxSizerFlags(1).CenterVertical());
  row->AddSpacer(VariableButtonWidth(*page));
  row->Add(new wxStaticText(parent, wxID_ANY, "."), wxSizerFlags().CenterVertical().Border());
  row->Add(build.Text(parent, "txtTable", kNameWidth), wxSizerFlags(2).CenterVertical());
  row->AddSpacer(VariableButtonWidth(*page));
  row->Add(build.Button(parent, "Command1"), wxSizerFlags().CenterVertical().Border(wxLEFT));
  frame->Add(row, wxSizerFlags().Expand().Border());
  return frame;
}

wxSizer* MakeFile(wxWindow* page, PageBuilder& build) {
  auto* const all = new wxBoxSizer(wxVERTICAL);
  auto* const options = new wxBoxSizer(wxHORIZONTAL);
  options->Add(build.Option(page, "OptCsv", 0), wxSizerFlags().DoubleBorder(wxRIGHT));
  options->Add(build.Option(page, "OptCsv", 1));
  wxFlexGridSizer* const fields = PageBuilder::Fields(page);
  wxWindow* const alias_label = build.Label(page, "Label2");
  build.AddField(fields, alias_label, build.Text(page, "txtAlias", kNameWidth));
  wxWindow* const folder_label = build.Label(page, "Label4");
  build.AddField(fields, folder_label, build.Text(page, "txtRep", kNameWidth));
  all->Add(options, wxSizerFlags().Border(wxTOP | wxBOTTOM));
  all->Add(fields, wxSizerFlags().Expand());
  return all;
}

wxSizer* MakeMode(wxWindow* page, PageBuilder& build) {
  wxStaticBoxSizer* const frame = build.Frame(page, "Frame3D4");
  wxWindow* const parent = PageBuilder::Parent(frame);
  auto* const modes = new wxWrapSizer(wxHORIZONTAL, wxREMOVE_LEADING_SPACES);
  for (int mode = 0; mode < kModeCount; ++mode) {
    modes->Add(build.Option(parent, "optBCP", mode), wxSizerFlags().Border());
  }
  auto* const key = new wxBoxSizer(wxHORIZONTAL);
  key->Add(build.Label(parent, "Label5"), wxSizerFlags().CenterVertical().Border());
  key->Add(build.Text(parent, "txtCle", kNameWidth), wxSizerFlags(1).CenterVertical());
  key->AddSpacer(VariableButtonWidth(*page));
  key->Add(build.Button(parent, "cmdCle"), wxSizerFlags().CenterVertical().Border());
  frame->Add(modes, wxSizerFlags().Expand());
  frame->Add(key, wxSizerFlags().Expand());
  frame->Add(build.Check(parent, "chkPrimKey"), wxSizerFlags().Border());
  return frame;
}

}  // namespace

void FillParametersPage(wxPanel* page, PageBuilder& build) {
  auto* const all = new wxBoxSizer(wxVERTICAL);
  wxFlexGridSizer* const name = PageBuilder::Fields(page);
  wxWindow* const name_label = build.Label(page, "Label8");
  build.AddField(name, name_label, build.Text(page, "txtTache", kNameWidth));
  const wxSizerFlags row = wxSizerFlags().Expand().Border();
  all->Add(name, row);
  all->Add(MakeSource(page, build), row);
  all->Add(MakeTable(page, build), row);
  all->Add(MakeFile(page, build), row);
  all->Add(MakeMode(page, build), row);
  page->SetSizer(all);
}

}  // namespace imptable
