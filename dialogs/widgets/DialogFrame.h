#ifndef DIALOGS_WIDGETS_DIALOG_FRAME_H_
#define DIALOGS_WIDGETS_DIALOG_FRAME_H_

#include <wx/dialog.h>

#include <functional>

#include "core/ModuleCommun.h"

namespace imptable {

/// Gives a small dialog its buttons cmdValider and cmdAnnuler below its contents, and its size.
/// Enter confirms, Escape cancels.
/// @param contents  owned from now on.
/// @param confirm  what cmdValider does; cancelling ends the modal showing.
void FinishDialog(wxDialog& dialog, const ModuleCommun& module, wxSizer* contents,
                  std::function<void()> confirm);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_DIALOG_FRAME_H_
