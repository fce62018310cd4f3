#ifndef TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
#define TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Windows_win32.h"

namespace imptable {

/// Somebody before the screen: moves the mouse, presses keys, and sees the windows of this process
/// as Windows shows them: by their captions and places. Works on a thread of its own. Each member
/// waits until what it needs is there, and throws std::runtime_error when that takes too long.
class ScreenPerson {
 public:
  /// @param host  the host's own window, which is none of the dialogs.
  explicit ScreenPerson(HWND host) : host_(host) {}

  /// The window in front, of this process and not the host's; null when there is none.
  HWND Front() const;

  /// Waits until the dialog with the tabs is in front and remembers it.
  HWND WaitForTaskDialog();

  /// Waits until a window that isn't the dialog with the tabs is in front. @return its caption.
  std::wstring WaitForOther();

  /// Waits for a message box, answers it by Enter. @return its text.
  std::wstring AnswerBox();

  void WaitUntil(const std::function<bool()>& condition, const std::string& what) const;

  /// A button, box or option by its caption in the window in front.
  void Click(const std::wstring& caption) const;
  void ClickTab(int tab) const;

  /// Clicks the first cell of the grid with this number, counted from the left.
  void ClickGrid(std::size_t grid) const;

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

  /// @param key  its virtual-key code.
  static void Press(int key);
  static void Type(const std::wstring& text);

  /// Asks each dialog to close.
  void CloseDialogs() const;

  /// Saves the window in front as a picture.
  void TakePicture(const std::wstring& file) const;

 private:
  HWND host_;
};

/// Caption or text of a window.
std::wstring TextOf(HWND window);

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SCREEN_PERSON_H_
