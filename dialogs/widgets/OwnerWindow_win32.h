#ifndef DIALOGS_WIDGETS_OWNER_WINDOW_WIN32_H_
#define DIALOGS_WIDGETS_OWNER_WINDOW_WIN32_H_

#include <wx/toplevel.h>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// A window of the host as the toolkit sees it while the window owns a dialog. It is disabled while
/// the dialog is open, and enabled and active afterwards. The host alone gets its messages.
class OwnerWindow : public wxTopLevelWindow {
 public:
  /// @param window  borrowed; a top-level window of this thread that outlives this.
  explicit OwnerWindow(HWND window);
  ~OwnerWindow() override;

  /// The thread's active window; null when there is none.
  static HWND OfThread();
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_OWNER_WINDOW_WIN32_H_
