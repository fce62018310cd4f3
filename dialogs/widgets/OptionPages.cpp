#include <wx/button.h>
#include <wx/grid.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <utility>

#include "dialogs/widgets/Pages.h"
#include "dialogs/widgets/Spinner.h"

namespace imptable {
namespace {

constexpr int kDeletionCount = 3;
constexpr int kDelimiterWidth = 4;  // characters
constexpr int kNumberWidth = 8;
constexpr int kCodeWidth = 16;
constexpr int kActionColumns = 3;

wxSizer* MakeDeletion(wxWindow* page, PageBuilder& build) {
  wxStaticBoxSizer* const frame = build.Frame(page, "SSFrame2");
  wxWindow* const parent = PageBuilder::Parent(frame);
  for (int index = 0; index < kDeletionCount; ++index) {
    frame->Add(build.Option(parent, "optSup", index), wxSizerFlags().Border());
  }
  frame->Add(build.Check(parent, "chkSupp"), wxSizerFlags().Border());
  return frame;
}

wxSizer* MakeFormat(wxWindow* page, PageBuilder& build) {
  wxStaticBoxSizer* const frame = build.Frame(page, "SSFrame4");
  wxWindow* const parent = PageBuilder::Parent(frame);
  frame->Add(build.Option(parent, "optForm", 0), wxSizerFlags().Border());
  frame->Add(build.Option(parent, "optForm", 1), wxSizerFlags().Border());
  auto* const separator = new wxBoxSizer(wxHORIZONTAL);
  separator->Add(build.Label(parent, "Label7"), wxSizerFlags().CenterVertical().Border(wxRIGHT));
  separator->Add(build.Text(parent, "txtDelimiteurFile", kDelimiterWidth));
  frame->Add(separator, wxSizerFlags().Border());
  return frame;
}

wxSizer* MakeColumnCount(wxWindow* page, PageBuilder& build, SpinHandler spin) {
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(build.Label(page, "Label6"), wxSizerFlags().CenterVertical().Border(wxRIGHT));
  wxTextCtrl* const count = build.Text(page, "textNbCol", kNumberWidth);
  wxWindow* const spinner = MakeSpinner(page, count, "UpDown1", std::move(spin));
  build.Add(spinner, "UpDown1");
  row->Add(count, wxSizerFlags().CenterVertical());
  row->Add(spinner, wxSizerFlags().Expand());
  return row;
}

}  // namespace

void FillOptionsPage(wxPanel* page, PageBuilder& build, SpinHandler spin) {
  auto* const frames = new wxBoxSizer(wxHORIZONTAL);
  frames->Add(MakeDeletion(page, build), wxSizerFlags(1).Expand().Border(wxRIGHT));
  frames->Add(MakeFormat(page, build), wxSizerFlags(1).Expand().Border(wxLEFT));
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(frames, wxSizerFlags().Expand().Border());
  all->Add(MakeColumnCount(page, build, std::move(spin)), wxSizerFlags().Border());
  for (const char* const name : {"chkDec", "chkNull", "chkParam"}) {
    all->Add(build.Check(page, name), wxSizerFlags().Border());
  }
  page->SetSizer(all);
}

void FillErrorsPage(wxPanel* page, PageBuilder& build) {
  wxFlexGridSizer* const limit = PageBuilder::Fields(page);
  wxWindow* const limit_label = build.Label(page, "Label3");
  build.AddField(limit, limit_label, build.Text(page, "txtErreur", kCodeWidth));
  wxWindow* const duplicates = build.Check(page, "chkDou");
  wxFlexGridSizer* const code = PageBuilder::Fields(page);
  wxWindow* const code_label = build.Label(page, "Label12");
  build.AddField(code, code_label, build.Text(page, "txtErr", kCodeWidth));
  wxStaticBoxSizer* const resume = build.Frame(page, "Frame3D7");
  resume->Add(build.Check(PageBuilder::Parent(resume), "chkRecup"), wxSizerFlags().Border());

  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(limit, wxSizerFlags().Border());
  all->Add(duplicates, wxSizerFlags().Border());
  all->Add(code, wxSizerFlags().Border());
  all->Add(resume, wxSizerFlags().Expand().Border());
  page->SetSizer(all);
}

void FillCommentPage(wxPanel* page, PageBuilder& build) {
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(build.Text(page, "txtComm", kCodeWidth, wxTE_MULTILINE),
           wxSizerFlags(1).Expand().Border());
  page->SetSizer(all);
}

void FillActionsPage(wxPanel* page, PageBuilder& build) {
  auto* const actions = new wxGrid(page, wxID_ANY);
  actions->CreateGrid(0, kActionColumns);
  build.Add(actions, "grdAc");
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  for (const char* const name : {"cmdAcA", "cmdAcM", "cmdAcS"}) {
    buttons->Add(build.Button(page, name), wxSizerFlags().Border(wxRIGHT));
  }
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(actions, wxSizerFlags(1).Expand().Border());
  all->Add(buttons, wxSizerFlags().Border());
  page->SetSizer(all);
}

}  // namespace imptable
