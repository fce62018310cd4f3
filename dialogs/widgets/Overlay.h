#ifndef DIALOGS_WIDGETS_OVERLAY_H_
#define DIALOGS_WIDGETS_OVERLAY_H_

class wxListBox;
class wxWindow;

namespace imptable {

// For a list that lies over other controls.

/// Has a window paint only where no other one of the same parent lies over it.
void LetLieUnderOthers(wxWindow& window);

/// What a list takes to show so many entries, in pixels.
int HeightOfEntries(const wxListBox& list, int count);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_OVERLAY_H_
