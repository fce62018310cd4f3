#include "dialogs/widgets/OwnerWindow_win32.h"

namespace imptable {

OwnerWindow::OwnerWindow(HWND window) {
  SetHWND(window);
  m_isShown = IsWindowVisible(window) != FALSE;
  m_isEnabled = IsWindowEnabled(window) != FALSE;
  // A modal dialog disables the windows of this list.
  wxTopLevelWindows.Append(this);
}

OwnerWindow::~OwnerWindow() {
  // A dialog that a request to quit has ended leaves its owner disabled.
  EnableWindow(static_cast<HWND>(GetHWND()), m_isEnabled ? TRUE : FALSE);
  // The host destroys its own window; the base class must not.
  SetHWND(nullptr);
}

HWND OwnerWindow::OfThread() {
  const HWND active = GetActiveWindow();
  return active == nullptr ? nullptr : GetAncestor(active, GA_ROOT);
}

}  // namespace imptable
