#include <wx/access.h>
#include <wx/listbox.h>
#include <wx/msw/private.h>
#include <wx/window.h>

#include <memory>

#include "dialogs/widgets/SystemWidgets.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

/// Gives a name of its own, and leaves all else to the system.
class NamedControl : public wxAccessible {
 public:
  NamedControl(wxWindow* control, const wxString& name) : wxAccessible(control), name_(name) {}

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
  }

 private:
  wxString name_;
};

}  // namespace

void SetAccessibleName(wxWindow& control, const wxString& name) {
  control.SetAccessible(std::make_unique<NamedControl>(&control, name).release());
}

wxIconBundle DialogIcon(const std::string& resource) {
  return wxIconBundle(wxString::FromAscii(resource.c_str()), wxGetInstance());
}

// On Windows a drop-down list is one stop already.
void MakeOneStop(wxComboBox& /*list*/) {}

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

std::optional<std::uint32_t> TimeOfInput() {
  // Another program may press a button for its user. Then there is no key or click.
  if (InSendMessage() != FALSE) return std::nullopt;
  return static_cast<std::uint32_t>(GetMessageTime());
}

std::optional<std::uint32_t> PresentTime(const wxWindow& /*window*/) { return GetTickCount(); }

}  // namespace imptable
