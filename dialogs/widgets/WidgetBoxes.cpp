#include "dialogs/widgets/WidgetBoxes.h"

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

namespace imptable {
namespace {

/// The window that a box belongs to: the modal dialog that the user is in.
wxWindow* FrontWindow() {
  wxWindow* const active = wxGetActiveWindow();
  if (active != nullptr) return wxGetTopLevelParent(active);
  return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr;
}

/// Shows the ordinary pointer while it lives: a box with an hourglass looks as if one had to wait.
class OrdinaryPointer {
 public:
  OrdinaryPointer() {
    while (wxIsBusy()) {
      wxEndBusyCursor();
      ++levels_;
    }
  }
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;
  ~OrdinaryPointer() {
    for (; levels_ > 0; --levels_) wxBeginBusyCursor();
  }

 private:
  int levels_ = 0;
};

}  // namespace

int WidgetBoxes::Show(std::string_view text, std::string_view caption, long style) const {
  const OrdinaryPointer pointer;
  return wxMessageBox(text_.Shown(text), text_.Shown(caption), static_cast<int>(style),
                      FrontWindow());
}

void WidgetBoxes::Warn(std::string_view text, std::string_view caption) {
  Show(text, caption, wxOK | wxICON_EXCLAMATION);
}

void WidgetBoxes::Inform(std::string_view text, std::string_view caption) {
  Show(text, caption, wxOK | wxICON_INFORMATION);
}

bool WidgetBoxes::Ask(std::string_view text, std::string_view caption) {
  return Show(text, caption, wxYES_NO | wxICON_QUESTION) == wxYES;
}

void WidgetMousePointer::ShowHourglass() { wxBeginBusyCursor(); }

void WidgetMousePointer::Reset() {
  if (wxIsBusy()) wxEndBusyCursor();
}

}  // namespace imptable
