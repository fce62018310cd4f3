#ifndef TESTS_DIALOGS_PERSON_H_
#define TESTS_DIALOGS_PERSON_H_

#include <functional>
#include <string>
#include <vector>

#include "tests/dialogs/FrontWindows.h"
#include "tests/dialogs/MainThread.h"

namespace imptable {

/// Somebody before the screen: clicks and types by xdotool, and sees what the windows of this
/// process show. Works on a thread of its own, while the dialogs run on the main one; each member
/// waits until what it needs is there, and throws std::runtime_error when that takes too long.
/// Controls are known by their names, in the dialog that is in front.
class Person {
 public:
  /// Waits until the dialog of this name is in front and has settled.
  void WaitForDialog(const std::string& name);

  /// Waits until no dialog of this name is shown any more.
  void WaitUntilGone(const std::string& name);

  /// Waits for a menu. @return its entries, as OpenMenu tells them.
  std::vector<std::string> WaitForMenu();

  /// Waits for a menu and goes down to an entry of it.
  void Choose(const std::string& entry);

  void WaitForFocus(const std::string& control);
  void WaitForText(const std::string& control, const std::string& text);
  void WaitForCell(const std::string& grid, int row, int column, const std::string& text);

  /// Waits until the condition holds. It is asked on the main thread.
  void WaitUntil(const std::function<bool()>& condition, const std::string& what);

  void Click(const std::string& control);
  /// Moves the mouse over the control.
  void Aim(const std::string& control);
  /// Presses the mouse's button without a look at the dialogs, which may be busy.
  void ClickBlindly();
  /// One of the two buttons of a spinner.
  void ClickHalf(const std::string& spinner, bool up);
  /// Rows and columns from 0, without the header.
  void ClickCell(const std::string& grid, int row, int column);
  /// A cell's place on the screen, scrolled into sight.
  wxRect CellPlace(const std::string& grid, int row, int column);
  /// Opens the list of a drop-down list by its arrow.
  void OpenList(const std::string& field);
  /// An entry of a list that is open, from 0.
  void ClickEntry(const std::string& list, int entry);
  /// A line of the picker's List1, from 0, once or twice.
  void ClickLine(int line, int times);
  /// A tab of SSTab1, by its index.
  void ClickTab(int tab);

  /// Keys by their X names, as "Tab" or "ctrl+a"; several, one after the other, parted by blanks.
  void Press(const std::string& keys);
  void Type(const std::string& text);
  /// Presses Tab until the control has the focus.
  void GoTo(const std::string& control);
  /// Clicks into a field and types in place of what it holds.
  void Fill(const std::string& field, const std::string& text);

  /// What the control shows: a text, "1" or "0" for a check mark or an option.
  std::string Sees(const std::string& control);
  std::string SeesCell(const std::string& grid, int row, int column);
  /// The texts of the header row, joined by "|".
  std::string Header(const std::string& grid);
  /// The entries of a list, joined by blanks.
  std::string Entries(const std::string& list);
  /// The lines of the picker's List1, columns joined by "|"; the selected one begins with ">".
  std::vector<std::string> Lines();
  bool IsMasked(const std::string& field);
  bool IsEnabled(const std::string& control);
  /// What a screen reader calls the control.
  std::string AccessibleName(const std::string& control);
  std::string AccessibleNameOfFocus();
  int FrontTab();
  /// The name of the control with the focus. For an inner window of the toolkit's, that of the
  /// nearest parent with a name of ours.
  std::string Focused();

  /// Asks about the control on the main thread.
  /// @param question  takes the control.
  template <typename Question>
  auto Ask(const std::string& control, Question question) {
    return OnMainThread([&] { return question(Control(control)); });
  }

  /// Takes a picture of the dialog in front.
  void TakePicture(const std::string& file);
};

/// Runs xdotool, or another program, with these words. @throws std::runtime_error
std::string RunProgram(const std::vector<std::string>& words);

}  // namespace imptable

#endif  // TESTS_DIALOGS_PERSON_H_
