#ifndef TESTS_WIN32_DIALOGS_HOST_WINDOW_H_
#define TESTS_WIN32_DIALOGS_HOST_WINDOW_H_

#include <functional>

#include "platform/Windows_win32.h"

namespace imptable {

class ScreenPerson;

/// A host of the plainest kind: one window with a class and a message loop of its own.
class HostWindow {
 public:
  HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;
  ~HostWindow();

  HWND handle() const { return window_; }

  /// Has `call` called by the window's procedure, as at the press of a button, while somebody acts
  /// before the screen on a thread of their own. What that throws is a failure of the test; the
  /// dialogs are then closed.
  void Serve(const std::function<void()>& call, const std::function<void(ScreenPerson&)>& acts);

 private:
  static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM pointer);
  static void HandleMessages();

  HWND window_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_WINDOW_H_
