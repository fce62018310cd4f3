#include "dialogs/widgets/DialogFrame.h"

#include <wx/button.h>
#include <wx/sizer.h>

#include <utility>

#include "dialogs/widgets/AccessKey.h"
#include "dialogs/widgets/WidgetText.h"

namespace imptable {
namespace {}  // namespace

void FinishDialog(wxDialog& dialog, const ModuleCommun& module, wxSizer* contents,
                  std::function<void()> confirm) {
  const WidgetText text(module.platform.encoding);
  const auto make_button = [&](int id, Message message, const char* name) {
    auto* const button = new wxButton(&dialog, id, text.Shown(module.MessageText(message)));
    button->SetName(name);
    return button;
  };
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  wxButton* const ok = make_button(wxID_OK, Message::kConfirm, "cmdValider");
  wxButton* const cancel = make_button(wxID_CANCEL, Message::kCancel, "cmdAnnuler");
  buttons->AddStretchSpacer();
  buttons->Add(ok, wxSizerFlags().Border(wxRIGHT));
  buttons->Add(cancel);

  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(contents, wxSizerFlags(1).Expand().DoubleBorder());
  all->Add(buttons, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
  dialog.SetSizerAndFit(all);
  ok->Bind(wxEVT_BUTTON, [confirm = std::move(confirm)](wxCommandEvent&) { confirm(); });
  ok->SetDefault();
  dialog.Bind(wxEVT_CHAR_HOOK, [&dialog](wxKeyEvent& event) {
    if (!PressByAccessKey(dialog, event)) event.Skip();
  });
  dialog.SetEscapeId(wxID_CANCEL);
  dialog.CentreOnParent();
}

}  // namespace imptable
