#include <gtk/gtk.h>
#include <wx/combobox.h>

#include "dialogs/widgets/OneStop.h"

namespace imptable {
namespace {

void LeaveOutArrow(GtkWidget* part, gpointer /*data*/) {
  if (GTK_IS_TOGGLE_BUTTON(part)) {
    gtk_widget_set_can_focus(part, FALSE);
  } else if (GTK_IS_CONTAINER(part)) {
    gtk_container_forall(GTK_CONTAINER(part), LeaveOutArrow, nullptr);
  }
}

}  // namespace

void MakeOneStop(wxComboBox& list) { LeaveOutArrow(GTK_WIDGET(list.GetHandle()), nullptr); }

}  // namespace imptable
