#include <gtk/gtk.h>
#include <wx/window.h>

#include "dialogs/widgets/AccessibleName.h"

namespace imptable {

namespace {

void Name(GtkWidget* widget, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(widget);
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace

void SetAccessibleName(wxWindow& control, const wxString& name) {
  GtkWidget* const widget = GTK_WIDGET(control.GetHandle());
  Name(widget, name);
  // In a drop-down list, the field inside it has the focus.
  if (GTK_IS_COMBO_BOX(widget)) Name(gtk_bin_get_child(GTK_BIN(widget)), name);
}

}  // namespace imptable
