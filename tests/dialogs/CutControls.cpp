#include "tests/dialogs/CutControls.h"

#include <gtk/gtk.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "tests/dialogs/FrontWindows.h"

namespace imptable {
namespace {

bool HasCaption(const wxWindow& window) {
  return dynamic_cast<const wxButton*>(&window) != nullptr ||
         dynamic_cast<const wxCheckBox*>(&window) != nullptr ||
         dynamic_cast<const wxRadioButton*>(&window) != nullptr ||
         dynamic_cast<const wxStaticText*>(&window) != nullptr;
}

/// The least size that the control needs, asked of the toolkit anew.
wxSize Wanted(wxWindow& window) {
  window.InvalidateBestSize();
  const wxSize best = window.GetBestSize();
  if (HasCaption(window)) return best;
  // Letters of their whole height, and the field's borders.
  if (dynamic_cast<const wxTextCtrl*>(&window) != nullptr) return {0, window.GetCharHeight() + 8};
  if (dynamic_cast<const wxStaticBox*>(&window) != nullptr) {
    return {window.GetTextExtent(window.GetLabel()).x, 0};
  }
  return {};
}

bool IsCut(wxWindow& window) {
  const wxSize wanted = Wanted(window);
  const wxRect place = window.GetRect();
  const bool is_page = dynamic_cast<const wxNotebook*>(window.GetParent()) != nullptr;
  if (is_page) return false;  // the toolkit places it
  const wxSize room = window.GetParent()->GetClientSize();
  return place.width < wanted.x || place.height < wanted.y || place.x < 0 || place.y < 0 ||
         place.GetRight() >= room.x || place.GetBottom() >= room.y;
}

void Look(wxWindow& window, std::vector<std::string>& cut) {
  for (wxWindow* const child : window.GetChildren()) {
    if (!child->IsShownOnScreen()) continue;
    if (IsCut(*child)) cut.push_back(child->GetName().utf8_string());
    // Don't look into the toolkit's own controls: it places what is in them.
    const bool is_ours =
        child->GetHandle() != nullptr && dynamic_cast<wxControl*>(child) == nullptr;
    const bool holds_ours =
        dynamic_cast<wxStaticBox*>(child) != nullptr || dynamic_cast<wxNotebook*>(child) != nullptr;
    if (is_ours || holds_ours) Look(*child, cut);
  }
}

std::string FontOf(GtkSettings* settings) {
  gchar* name = nullptr;
  g_object_get(settings, "gtk-font-name", &name, nullptr);
  std::string font = name;
  g_free(name);
  return font;
}

void SetFont(const std::string& font) {
  g_object_set(gtk_settings_get_default(), "gtk-font-name", font.c_str(), nullptr);
}

}  // namespace

std::vector<std::string> CutControls() {
  std::vector<std::string> cut;
  wxDialog& dialog = *FrontDialog();
  Look(dialog, cut);
  return cut;
}

DesktopFont::DesktopFont(const std::string& font) : before_(FontOf(gtk_settings_get_default())) {
  SetFont(font);
}

DesktopFont::~DesktopFont() { SetFont(before_); }

}  // namespace imptable
