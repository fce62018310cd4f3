#include <wx/listbox.h>

#include "dialogs/widgets/Overlay.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {

void LetLieUnderOthers(wxWindow& window) {
  const auto handle = static_cast<HWND>(window.GetHWND());
  SetWindowLongPtrW(handle, GWL_STYLE, GetWindowLongPtrW(handle, GWL_STYLE) | WS_CLIPSIBLINGS);
  SetWindowPos(handle, nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int HeightOfEntries(const wxListBox& list, int count) {
  const auto handle = static_cast<HWND>(list.GetHWND());
  const int borders = list.GetSize().y - list.GetClientSize().y;
  return count * static_cast<int>(SendMessageW(handle, LB_GETITEMHEIGHT, 0, 0)) + borders;
}

}  // namespace imptable
