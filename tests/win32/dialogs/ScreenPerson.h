#ifndef TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
#define TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_

#include <functional>
#include <string>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// A line of the menu of types that a click into the first grid opens, counted from its top.
enum class TypeMenuLine : int { kText = 1, kNumeric, kDate, kBoolean, kLength, kDecimals };

/// A line of its submenu of numbers.
enum class NumberLine : int { kByte, kInteger, kLong, kSingle, kDouble };

/// Somebody before the screen: moves the mouse, presses keys, and sees the windows of a process as
/// Windows shows them: by their captions and places. Each member waits until what it needs is
/// there, and throws std::runtime_error when that takes too long.
class ScreenPerson {
 public:
  /// @param process  whose windows the person works in.
  /// @param host  that process's own window, which is none of the dialogs.
  ScreenPerson(DWORD process, HWND host) : process_(process), host_(host) {}

  /// The window in front, of that process and not the host's; null when there is none.
  HWND Front() const;

  /// Waits until the dialog with the tabs is in front.
  HWND WaitForTaskDialog() const;

  /// Waits until a window that isn't the dialog with the tabs is in front. @return its caption.
  std::wstring WaitForOther() const;

  /// Waits for a message box, answers it by a key. @return its text.
  std::wstring AnswerBox(int key = VK_RETURN) const;

  /// Waits until the window is no longer there.
  void WaitUntilGone(HWND window) const;

  static void WaitUntil(const std::function<bool()>& condition, const std::string& what);

  /// A button, box or option by its caption in the window in front.
  void Click(const std::wstring& caption) const;
  void ClickTab(int tab) const;
  /// Goes on to a tab by keys.
  void GoToTab(int tab) const;

  /// Clicks into a cell. @param grid  counted from the left. @param row, column  from 0, without
  /// the header.
  void ClickCell(std::size_t grid, std::size_t row, std::size_t column) const;

  /// Clicks into a cell of the first grid and goes down to a line of the menu that opens.
  void ChooseType(std::size_t row, TypeMenuLine line) const;
  void ChooseNumber(std::size_t row, NumberLine line) const;
  /// The same in a menu that opens by itself.
  void ChooseInMenu(TypeMenuLine line) const;

  /// Waits until a menu is open, or no longer.
  void WaitForMenu(bool is_open = true) const;

  /// A field by the label at its left. Types in place of what it holds.
  void Fill(const std::wstring& label, const std::wstring& text) const;
  std::wstring Sees(const std::wstring& label) const;
  /// Waits until it holds this text.
  void WaitToSee(const std::wstring& label, const std::wstring& text) const;

  /// Whether a window inside the one in front shows this text.
  bool SeesText(const std::wstring& text) const;
  void WaitForText(const std::wstring& text) const;
  /// Whether the list of the dialog's first combo box has this entry.
  bool OffersSource(const std::wstring& name) const;

  bool IsChecked(const std::wstring& caption) const;

  /// Clicks the button "@" beside a field. The field then has the focus, except that of the
  /// sources.
  void ClickVariableButton(const std::wstring& label) const;

  /// Whether letters that are typed into the field can't be read.
  bool IsMasked(const std::wstring& label) const;

  /// Goes on by a key until a field, button or option of this label has the focus.
  void GoTo(const std::wstring& label, int key = VK_TAB) const;
  /// The same for a grid, counted from the left.
  void GoToGrid(std::size_t grid) const;

  /// Waits until the field or control of this label has the focus.
  void WaitForFocus(const std::wstring& label) const;

  /// Waits until a list is to be seen over the grid, with a selected entry. @return its window.
  HWND WaitForList() const;

  /// Clicks an entry of that list.
  void ClickEntry(const std::wstring& entry) const;
  /// The first line of a list that isn't over a grid.
  void DoubleClickFirstLine() const;

  /// Clicks an arrow of the spinner in the window in front.
  void ClickSpinner(bool up) const;

  /// @param key  its virtual-key code.
  static void Press(int key, int times = 1);
  static void PressWith(int held_key, int key);
  static void Type(const std::wstring& text);

  /// Saves the window in front, in the frame that the screen's window manager gives it, as a
  /// picture of the kind BMP.
  void TakePicture(const std::wstring& file) const;

 private:
  HWND Focus() const;
  HWND ControlOf(const std::wstring& label) const;
  void GoToWindow(const std::function<HWND()>& find, const std::string& what, int key) const;

  DWORD process_;
  HWND host_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
