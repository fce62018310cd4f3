#include "dialogs/widgets/OwnerWindow_win32.h"

namespace imptable {

OwnerWindow::OwnerWindow(HWND window) {
  SetHWND(window);
  m_isShown = IsWindowVisible(window) != FALSE;
  m_isEnabled = IsWindowEnabled(window) != FALSE;
  // What a modal dialog disables are the windows of this list.
  wxTopLevelWindows.Append(this);
}

OwnerWindow::~OwnerWindow() {
  // A dialog that a request to quit has ended leaves it disabled.
  EnableWindow(static_cast<HWND>(GetHWND()), m_isEnabled ? TRUE : FALSE);
  // The window is the host's to destroy.
  SetHWND(nullptr);
}

HWND OwnerWindow::OfThread() {
  const HWND active = GetActiveWindow();
  return active == nullptr ? nullptr : GetAncestor(active, GA_ROOT);
}

}  // namespace imptable
