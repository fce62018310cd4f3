#include <gtk/gtk.h>
#include <wx/window.h>

#include "dialogs/widgets/AccessibleName.h"

namespace imptable {

void SetAccessibleName(wxWindow& control, const wxString& name) {
  AtkObject* const accessible = gtk_widget_get_accessible(GTK_WIDGET(control.GetHandle()));
  if (accessible != nullptr) atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace imptable
