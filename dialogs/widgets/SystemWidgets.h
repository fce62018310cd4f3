#ifndef DIALOGS_WIDGETS_SYSTEM_WIDGETS_H_
#define DIALOGS_WIDGETS_SYSTEM_WIDGETS_H_

#include <wx/iconbndl.h>
#include <wx/string.h>

#include <cstdint>
#include <optional>
#include <string>

class wxComboBox;
class wxListBox;
class wxWindow;

namespace imptable {

// What the toolkit does in another way on each system, or not at all.

/// What a screen reader calls the control.
void SetAccessibleName(wxWindow& control, const wxString& name);

/// An icon of the dialogs, in the sizes that there are.
/// @param resource  its name; a system without resources has one icon for all names.
wxIconBundle DialogIcon(const std::string& resource = "ICO1");

/// Lets Tab stop at the list's field alone, not at its arrow as well.
void MakeOneStop(wxComboBox& list);

// For a list that lies over other controls.

/// Lets a window paint only where no sibling lies over it.
void LetLieUnderOthers(wxWindow& window);

/// The height that a list needs to show `count` entries, in pixels.
int HeightOfEntries(const wxListBox& list, int count);

// Times on the system's clock for keys and clicks, in milliseconds. The clock starts again at 0
// after 49 days. nullopt where the system tells no time.

/// The time of the key or click that is being handled.
std::optional<std::uint32_t> TimeOfInput();

std::optional<std::uint32_t> PresentTime(const wxWindow& window);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_SYSTEM_WIDGETS_H_
