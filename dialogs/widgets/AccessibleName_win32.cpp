#include <wx/access.h>
#include <wx/window.h>

#include <memory>

#include "dialogs/widgets/AccessibleName.h"

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

}  // namespace imptable
