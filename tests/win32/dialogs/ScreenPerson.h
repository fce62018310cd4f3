#ifndef TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
#define TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_

#include <functional>
#include <string>

#include "platform/Windows_win32.h"

namespace imptable {

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

  /// Clicks into a cell. @param grid  counted from the left. @param row, column  from 0, without
  /// the header.
  void ClickCell(std::size_t grid, std::size_t row, std::size_t column) const;

  /// Clicks into a cell of the first grid and goes down to an entry of the menu that opens.
  void ChooseType(std::size_t row, int entry) const;

  /// Waits until a menu is open, or no longer.
  void WaitForMenu(bool is_open = true) const;

  /// A field by the label at its left. Types in place of what it holds.
  void Fill(const std::wstring& label, const std::wstring& text) const;
  std::wstring Sees(const std::wstring& label) const;

  /// Whether a window inside the one in front shows this text.
  bool SeesText(const std::wstring& text) const;
  /// Whether the list of the dialog's first combo box has this entry.
  bool OffersSource(const std::wstring& name) const;

  bool IsChecked(const std::wstring& caption) const;

  /// Waits until a list is to be seen over the grid, with a selected entry. @return its window.
  HWND WaitForList() const;

  /// Clicks an entry of that list.
  void ClickEntry(const std::wstring& entry) const;

  /// @param key  its virtual-key code.
  static void Press(int key);
  static void Type(const std::wstring& text);

  /// Saves the window in front, in the frame that the screen's window manager gives it, as a
  /// picture of the kind BMP.
  void TakePicture(const std::wstring& file) const;

 private:
  DWORD process_;
  HWND host_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
