#include <gdk/gdkx.h>
#include <gtk/gtk.h>
#include <wx/window.h>

#include "dialogs/widgets/InputTime.h"

namespace imptable {

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
