#include "dialogs/widgets/QuitRequest_win32.h"

#include <wx/dialog.h>

#include <bit>
#include <optional>
#include <utility>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

/// The exit code of a request to quit, once there was one. One variable for all dialogs, since they
/// belong to one thread.
std::optional<int> exit_code;

/// True when more than one dialog is open: another message loop runs around the one that reads now.
bool IsNested() {
  int open = 0;
  for (const wxWindow* const window : wxTopLevelWindows) {
    const auto* const dialog = dynamic_cast<const wxDialog*>(window);
    if (dialog != nullptr && dialog->IsModal()) ++open;
  }
  return open > 1;
}

// A loop of the toolkit that reads the request ends, and the request is used up. So it is kept here
// and posted again.
LRESULT CALLBACK OnMessage(int code, WPARAM removal, LPARAM pointer) {
  const MSG& message = *std::bit_cast<const MSG*>(pointer);
  if (code == HC_ACTION && removal == PM_REMOVE && message.message == WM_QUIT) {
    exit_code = static_cast<int>(message.wParam);
    if (IsNested()) PostQuitMessage(*exit_code);
  }
  return CallNextHookEx(nullptr, code, removal, pointer);
}

}  // namespace

QuitRequest::QuitRequest()
    : hook_(SetWindowsHookExW(WH_GETMESSAGE, &OnMessage, nullptr, GetCurrentThreadId())) {}

QuitRequest::~QuitRequest() {
  UnhookWindowsHookEx(hook_);
  if (const auto code = std::exchange(exit_code, std::nullopt)) PostQuitMessage(*code);
}

}  // namespace imptable
