#include "dialogs/widgets/ImpTableWindow.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>

#include <utility>

#include "dialogs/widgets/DialogFrame.h"
#include "dialogs/widgets/FormDateWindow.h"
#include "dialogs/widgets/FormNombreWindow.h"
#include "dialogs/widgets/FrmTableWindow.h"
#include "dialogs/widgets/Pages.h"
#include "dialogs/widgets/VariableWindow.h"

namespace imptable {
namespace {

/// Puts what is on the page into an area that scrolls.
void LetScroll(wxPanel& page) {
  constexpr int kStep = 10;   // in pixels of an ordinary screen
  constexpr int kLeast = 10;  // lines, so that scroll bars have room
  wxSizer* const contents = page.GetSizer();
  page.SetSizer(nullptr, false);
  const wxWindowList controls = page.GetChildren();
  auto* const area = new wxScrolledWindow(&page);
  for (wxWindow* const control : controls) control->Reparent(area);
  area->SetSizer(contents);
  area->SetMinSize({kLeast * area->GetCharHeight(), kLeast * area->GetCharHeight()});
  area->SetScrollRate(area->FromDIP(kStep), area->FromDIP(kStep));
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(area, wxSizerFlags(1).Expand());
  page.SetSizer(all);
}

}  // namespace

ImpTableWindow::ImpTableWindow(wxWindow* parent, const DialogServices& services,
                               std::int16_t working_mode, std::string task, std::string scenario)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "FrmImpTable"),
      services_(services),
      text_(services.module.platform.encoding),
      presenter_(services, *this, *this, working_mode, std::move(task), std::move(scenario)),
      build_(controls_) {
  auto* const all = new wxBoxSizer(wxVERTICAL);
  tabs_ = new wxNotebook(this, wxID_ANY);
  build_.Add(tabs_, "SSTab1");
  all->Add(tabs_, wxSizerFlags(1).Expand().Border());
  MakePages();
  MakeButtons(all);
  SetSizer(all);
  BindTexts();
  BindChoices();
  BindButtons();
  for (const auto& [name, control] : controls_) BindFocus(control, name);
  Bind(wxEVT_CHAR_HOOK, &ImpTableWindow::OnKey, this);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { presenter_.Cancel(); });
}

wxPanel* ImpTableWindow::MakePage() {
  auto* const page = new wxPanel(tabs_);
  build_.Add(page, "SSTab1(" + std::to_string(pages_.size()) + ')');
  tabs_->AddPage(page, "-");
  pages_.push_back(page);
  return page;
}

void ImpTableWindow::MakePages() {
  FillParametersPage(MakePage(), build_);
  FillOptionsPage(MakePage(), build_,
                  [this](bool up) { Later([this, up] { presenter_.OnSpin(up); }); });
  FillErrorsPage(MakePage(), build_);
  columns_ = std::make_unique<ColumnsPage>(
      MakePage(), build_, services_.module, text_,
      [this]() -> ColumnLayoutEditor& { return presenter_.columns(); });
  FillCommentPage(MakePage(), build_);
  FillActionsPage(MakePage(), build_);

  wxButton* const variable = build_.Button(pages_[kParametersTab], "cmdSv", "@");
  variable->Hide();
}

void ImpTableWindow::MakeButtons(wxSizer* all) {
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  wxButton* const help = build_.Button(this, "cmdHelp", "?");
  row->Add(help, wxSizerFlags().CenterVertical());
  row->AddStretchSpacer();
  for (const char* const name : {"cmdValider", "cmdApp", "cmdAnnuler"}) {
    row->Add(build_.Button(this, name), wxSizerFlags().Border(wxLEFT));
  }
  all->Add(row, wxSizerFlags().Expand().Border());
}

void ImpTableWindow::Run() {
  presenter_.Load();
  FitToCaptions();
  CentreOnParent();
  controls_.at("Combo1")->SetFocus();
  ShowModal();
}

void ImpTableWindow::FitToCaptions() {
  // The best sizes so far were measured without captions.
  for (const auto& [name, control] : controls_) control->InvalidateBestSize();
  // Twice: only after the first layout is it known how many lines a row takes that wraps.
  for (int time = 0; time < 2; ++time) GetSizer()->SetSizeHints(this);
  FitToScreen();
  // The notebook sizes a page when it comes to the front. Until then give the page room for all
  // that is on it.
  for (wxPanel* const page : pages_) {
    page->SetSize(page->GetBestSize());
    page->Layout();
  }
}

void ImpTableWindow::FitToScreen() {
  const wxSize whole = ClientToWindowSize(GetSizer()->CalcMin());
  const wxSize screen = wxDisplay(this).GetClientArea().GetSize();
  if (whole.x <= screen.x && whole.y <= screen.y) return;
  for (wxPanel* const page : pages_) LetScroll(*page);
  GetSizer()->SetSizeHints(this);
  SetSize({std::min(whole.x, screen.x), std::min(whole.y, screen.y)});
}

void ImpTableWindow::HideDialog() {
  if (IsModal()) EndModal(wxID_OK);
}

void ImpTableWindow::Focus(std::string_view control) {
  if (control == "Grid1") return columns_->FocusFileColumns();
  if (control == "Grid2") return columns_->FocusFields();
  const auto found = controls_.find(control);
  if (found != controls_.end()) found->second->SetFocus();
}

void ImpTableWindow::RunTablePicker(TablePickerPresenter& picker) {
  FrmTableWindow(this, services_.module, picker).Run();
}

std::optional<std::string> ImpTableWindow::PickVariable(const VariableListState& list) {
  return VariableWindow(this, services_.module, list).Pick();
}

std::optional<std::string> ImpTableWindow::AskDateFormat(const std::string& format) {
  return FormDateWindow(this, services_.module).AskFormat(format);
}

std::optional<std::string> ImpTableWindow::AskNumber(NumberKind kind, const std::string& number) {
  return FormNombreWindow(this, services_.module, services_.boxes, kind).AskNumber(number);
}

}  // namespace imptable
