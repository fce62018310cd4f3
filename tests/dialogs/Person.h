#ifndef TESTS_DIALOGS_PERSON_H_
#define TESTS_DIALOGS_PERSON_H_

#include <functional>
#include <string>
#include <vector>

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

  void Click(const std::string& control);
  void DoubleClick(const std::string& control);
  /// Rows and columns from 0, without the header.
  void ClickCell(const std::string& grid, int row, int column);
  /// Opens the list of a drop-down list by its arrow.
  void OpenList(const std::string& field);
  /// An entry of a list that is open, from 0.
  void ClickEntry(const std::string& list, int entry);
  /// A tab of SSTab1, by its index.
  void ClickTab(int tab);

  /// Keys by their X names, as "Tab", "Return" or "ctrl+a".
  void Press(const std::string& keys);
  void Type(const std::string& text);
  /// Clicks into a field and types in place of what it holds.
  void Fill(const std::string& field, const std::string& text);

  /// What the control shows: a text, "1" or "0" for a check mark or an option.
  std::string Sees(const std::string& control);
  std::string SeesCell(const std::string& grid, int row, int column);
  /// The entries of a list, joined by blanks.
  std::string Entries(const std::string& list);
  bool IsMasked(const std::string& field);
  bool IsEnabled(const std::string& control);
  /// What a screen reader calls the control.
  std::string AccessibleName(const std::string& control);
  /// The labels, buttons and boxes of the tab in front that are too small for their captions.
  std::vector<std::string> CutControls();
  int FrontTab();
  /// The name of the control, or of the first of its parents that has one of ours, with the focus.
  std::string Focused();

  /// Waits until that is true, asked on the main thread.
  void WaitUntil(const std::function<bool()>& condition, const std::string& what);

  /// Closes every dialog, whatever it shows.
  void GiveUp();

  /// Takes a picture of the dialog in front.
  void TakePicture(const std::string& file);
};

/// Runs xdotool, or another program, with these words. @throws std::runtime_error
std::string RunProgram(const std::vector<std::string>& words);

}  // namespace imptable

#endif  // TESTS_DIALOGS_PERSON_H_
