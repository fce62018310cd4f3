#ifndef TESTS_DIALOGS_FRONT_WINDOWS_H_
#define TESTS_DIALOGS_FRONT_WINDOWS_H_

#include <wx/gdicmn.h>

#include <optional>
#include <string>
#include <vector>

class wxDialog;
class wxWindow;

namespace imptable {

// What is in front on the screen. All of it is to be asked on the main thread.

/// The modal dialog in front; null when there is none.
wxDialog* FrontDialog();

/// A control of the dialog in front, by its name.
/// @throws std::runtime_error  when there is none.
wxWindow& Control(const std::string& name);

/// What the message box in front says, as "Warn|title|text", "Inform|..." or "Ask|..." by its sign;
/// nullopt as long as no box has the keyboard.
std::optional<std::string> FrontBox();

/// The entries of the menu that is open, an entry that can't be chosen in brackets, a line as "-";
/// nullopt while none is open.
std::optional<std::vector<std::string>> OpenMenu();

/// Where the open menu's upper left corner is, and where the mouse is, on the screen.
wxPoint MenuPlace();
wxPoint MousePlace();

/// Ends the menu, box or dialog in front without a choice.
void DismissFront();

}  // namespace imptable

#endif  // TESTS_DIALOGS_FRONT_WINDOWS_H_
