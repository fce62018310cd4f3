#include "dialogs/widgets/InputTime.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {

std::optional<std::uint32_t> TimeOfInput() {
  // Another program may press a button for its user. Then there is no key or click.
  if (InSendMessage() != FALSE) return std::nullopt;
  return static_cast<std::uint32_t>(GetMessageTime());
}

std::optional<std::uint32_t> PresentTime(const wxWindow& /*window*/) { return GetTickCount(); }

}  // namespace imptable
