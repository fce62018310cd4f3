#include "dialogs/widgets/VariableWindow.h"

#include <wx/sizer.h>
#include <wx/treectrl.h>

#include "dialogs/widgets/DialogFrame.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

const wxSize kListSize(48, 15);  // in characters

}  // namespace

VariableWindow::VariableWindow(wxWindow* parent, const ModuleCommun& module,
                               const VariableListState& state)
    : wxDialog(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "FrmVariables"),
      text_(module.platform.encoding) {
  SetTitle(text_.Shown(state.caption));
  SetIcons(DialogIcon());
  names_ = new wxTreeCtrl(
      this, wxID_ANY, wxDefaultPosition,
      {kListSize.x * GetCharWidth(), kListSize.y * GetCharHeight()},
      wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_HIDE_ROOT | wxTR_NO_LINES | wxTR_SINGLE,
      wxDefaultValidator, "lstVariables");
  SetAccessibleName(*names_, GetTitle());
  const wxTreeItemId root = names_->AddRoot(wxString());
  for (const VariableGroup& group : state.groups) {
    const wxTreeItemId title = names_->AppendItem(root, text_.Shown(group.title));
    names_->SetItemBold(title);
    for (const std::string& name : group.names) names_->AppendItem(title, text_.Shown(name));
    names_->Expand(title);
  }
  names_->Bind(wxEVT_TREE_ITEM_ACTIVATED, [this](wxTreeEvent&) { Confirm(); });
  auto* const contents = new wxBoxSizer(wxVERTICAL);
  contents->Add(names_, wxSizerFlags(1).Expand());
  FinishDialog(*this, module, contents, [this] { Confirm(); });
  names_->SetFocus();
}

std::optional<std::string> VariableWindow::Selected() const {
  const wxTreeItemId item = names_->GetSelection();
  // The title of a group can't be picked.
  if (!item.IsOk() || item == names_->GetRootItem() ||
      names_->GetItemParent(item) == names_->GetRootItem()) {
    return std::nullopt;
  }
  return text_.Stored(names_->GetItemText(item));
}

void VariableWindow::Confirm() {
  if (Selected()) EndModal(wxID_OK);
}

std::optional<std::string> VariableWindow::Pick() {
  return ShowModal() == wxID_OK ? Selected() : std::nullopt;
}

}  // namespace imptable
