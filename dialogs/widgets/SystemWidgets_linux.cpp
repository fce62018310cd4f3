#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/combobox.h>
#include <wx/icon.h>
#include <wx/listbox.h>
#include <wx/window.h>

#include "dialogs/widgets/SystemWidgets.h"
#include "resources/icon.xpm"

namespace imptable {
namespace {

void Name(GtkWidget* widget, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(widget);
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

void LeaveOutArrow(GtkWidget* part, gpointer /*data*/) {
  if (GTK_IS_TOGGLE_BUTTON(part)) {
    gtk_widget_set_can_focus(part, FALSE);
  } else if (GTK_IS_CONTAINER(part)) {
    gtk_container_forall(GTK_CONTAINER(part), LeaveOutArrow, nullptr);
  }
}

}  // namespace

void SetAccessibleName(wxWindow& control, const wxString& name) {
  GtkWidget* const widget = GTK_WIDGET(control.GetHandle());
  Name(widget, name);
  // In a drop-down list, the field inside it has the focus.
  if (GTK_IS_COMBO_BOX(widget)) Name(gtk_bin_get_child(GTK_BIN(widget)), name);
}

wxIconBundle DialogIcon(const std::string& /*resource*/) { return wxIconBundle(wxIcon(icon_xpm)); }

void MakeOneStop(wxComboBox& list) { LeaveOutArrow(GTK_WIDGET(list.GetHandle()), nullptr); }

// On Linux every window does this by itself.
void LetLieUnderOthers(wxWindow& /*window*/) {}

int HeightOfEntries(const wxListBox& list, int count) {
  constexpr int kBorders = 7;  // above and below the letters, on an ordinary screen
  return count * (list.GetCharHeight() + list.FromDIP(kBorders));
}

std::optional<std::uint32_t> TimeOfInput() {
  const guint32 time = gtk_get_current_event_time();
  return time == GDK_CURRENT_TIME ? std::nullopt : std::optional<std::uint32_t>(time);
}

std::optional<std::uint32_t> PresentTime(const wxWindow& window) {
  GdkWindow* const drawn = gtk_widget_get_window(GTK_WIDGET(window.GetHandle()));
  if (drawn == nullptr || !GDK_IS_X11_WINDOW(drawn)) return std::nullopt;
  return gdk_x11_get_server_time(drawn);
}

}  // namespace imptable
