#ifndef DIALOGS_WIDGETS_OVERLAY_H_
#define DIALOGS_WIDGETS_OVERLAY_H_

class wxListBox;
class wxWindow;

namespace imptable {

// For a list that lies over other controls.

/// Lets a window paint only where no sibling lies over it.
void LetLieUnderOthers(wxWindow& window);

/// The height that a list needs to show `count` entries, in pixels.
int HeightOfEntries(const wxListBox& list, int count);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_OVERLAY_H_
