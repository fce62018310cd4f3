#include "dialogs/widgets/FrmTableWindow.h"

#include <wx/listctrl.h>
#include <wx/sizer.h>

#include <algorithm>
#include <string>

#include "dialogs/widgets/DialogFrame.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

const wxSize kListSize(45, 16);  // in characters

}  // namespace

FrmTableWindow::FrmTableWindow(wxWindow* parent, const ModuleCommun& module,
                               TablePickerPresenter& picker)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "FrmTable"),
      text_(module.platform.encoding),
      picker_(picker) {
  SetIcons(DialogIcon());
  list_ =
      new wxListView(this, wxID_ANY, wxDefaultPosition,
                     {kListSize.x * GetCharWidth(), kListSize.y * GetCharHeight()},
                     wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL, wxDefaultValidator, "List1");
  list_->AppendColumn(wxString());
  list_->AppendColumn(wxString());
  // A double click, and Enter in the list.
  list_->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { Confirm(); });
  list_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    // Nothing is selected at first. The first Down or Home then selects the first line.
    const bool steps = event.GetKeyCode() == WXK_DOWN || event.GetKeyCode() == WXK_HOME;
    if (steps && list_->GetFirstSelected() < 0 && list_->GetItemCount() > 0) {
      list_->Select(0);
      list_->Focus(0);
    } else {
      event.Skip();
    }
  });
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { picker_.Cancel(); }, wxID_CANCEL);
  auto* const contents = new wxBoxSizer(wxVERTICAL);
  contents->Add(list_, wxSizerFlags(1).Expand());
  FinishDialog(*this, module, contents, [this] { Confirm(); });
}

void FrmTableWindow::Run() {
  picker_.Open(*this);
  list_->SetFocus();
  ShowModal();
}

void FrmTableWindow::Show(const TablePickerState& state) {
  SetTitle(text_.Shown(state.caption));
  SetAccessibleName(*list_, GetTitle());
  if (wxWindow* const button = FindWindow(wxID_OK)) button->SetLabel(text_.Shown(state.cmdValider));
  if (wxWindow* const button = FindWindow(wxID_CANCEL)) {
    button->SetLabel(text_.Shown(state.cmdAnnuler));
  }
  list_->DeleteAllItems();
  for (const std::string& line : state.lines) {
    const std::size_t tab = line.find('\t');
    const long item = list_->InsertItem(list_->GetItemCount(), text_.Shown(line.substr(0, tab)));
    if (tab != std::string::npos) list_->SetItem(item, 1, text_.Shown(line.substr(tab + 1)));
  }
  FitColumns(state);
}

void FrmTableWindow::FitColumns(const TablePickerState& state) {
  constexpr int kOwner = 0;
  constexpr int kName = 1;
  const bool has_names =
      std::any_of(state.lines.begin(), state.lines.end(),
                  [](const std::string& line) { return line.find('\t') != std::string::npos; });
  if (has_names) {
    list_->SetColumnWidth(kOwner, wxLIST_AUTOSIZE);
    list_->SetColumnWidth(kName, list_->GetClientSize().x - list_->GetColumnWidth(kOwner));
  } else {
    list_->SetColumnWidth(kOwner, list_->GetClientSize().x);
    list_->SetColumnWidth(kName, 0);
  }
}

void FrmTableWindow::Confirm() {
  const long selected = list_->GetFirstSelected();
  picker_.Confirm(selected < 0 ? std::nullopt
                               : std::optional<std::size_t>(static_cast<std::size_t>(selected)));
}

void FrmTableWindow::CloseDialog() {
  if (IsModal()) EndModal(picker_.picked() ? wxID_OK : wxID_CANCEL);
}

}  // namespace imptable
