#include "tests/dialogs/FrontWindows.h"

#include <gtk/gtk.h>
#include <wx/dialog.h>
#include <wx/utils.h>

#include <stdexcept>

namespace imptable {
namespace {

std::string Owned(gchar* text) {
  std::string owned = text == nullptr ? "" : text;
  g_free(text);
  return owned;
}

GtkMessageDialog* MessageBox() {
  GtkMessageDialog* box = nullptr;
  GList* const windows = gtk_window_list_toplevels();
  for (const GList* at = windows; at != nullptr; at = at->next) {
    const bool is_box =
        GTK_IS_MESSAGE_DIALOG(at->data) && gtk_widget_get_visible(GTK_WIDGET(at->data)) != FALSE;
    if (is_box) box = GTK_MESSAGE_DIALOG(at->data);
  }
  g_list_free(windows);
  return box;
}

const char* KindOf(GtkMessageType type) {
  switch (type) {
    case GTK_MESSAGE_WARNING:
      return "Warn";
    case GTK_MESSAGE_INFO:
      return "Inform";
    case GTK_MESSAGE_QUESTION:
      return "Ask";
    default:
      return "Other";
  }
}

GtkWidget* Menu() {
  GtkWidget* const holder = gtk_grab_get_current();
  return holder != nullptr && GTK_IS_MENU(holder) ? holder : nullptr;
}

std::string EntryText(GtkMenuItem* item) {
  if (GTK_IS_SEPARATOR_MENU_ITEM(item)) return "-";
  const std::string label = gtk_menu_item_get_label(item);
  return gtk_widget_get_sensitive(GTK_WIDGET(item)) != FALSE ? label : '[' + label + ']';
}

}  // namespace

wxDialog* FrontDialog() {
  for (auto at = wxTopLevelWindows.GetLast(); at != nullptr; at = at->GetPrevious()) {
    auto* const dialog = dynamic_cast<wxDialog*>(at->GetData());
    if (dialog != nullptr && dialog->IsShown() && dialog->IsModal()) return dialog;
  }
  return nullptr;
}

wxWindow& Control(const std::string& name) {
  wxDialog* const dialog = FrontDialog();
  wxWindow* const control =
      dialog == nullptr ? nullptr : wxWindow::FindWindowByName(wxString::FromUTF8(name), dialog);
  if (control == nullptr) throw std::runtime_error("there is no control " + name);
  return *control;
}

std::optional<std::string> FrontBox() {
  GtkMessageDialog* const box = MessageBox();
  if (box == nullptr || gtk_window_is_active(GTK_WINDOW(box)) == FALSE) return std::nullopt;
  GtkMessageType type = GTK_MESSAGE_OTHER;
  gchar* title = nullptr;
  gchar* text = nullptr;
  g_object_get(box, "message-type", &type, "title", &title, "text", &text, nullptr);
  const std::string caption = Owned(title);
  return std::string(KindOf(type)) + '|' + caption + '|' + Owned(text);
}

std::optional<std::vector<std::string>> OpenMenu() {
  GtkWidget* const menu = Menu();
  if (menu == nullptr || gtk_widget_get_mapped(menu) == FALSE) return std::nullopt;
  std::vector<std::string> entries;
  GList* const items = gtk_container_get_children(GTK_CONTAINER(menu));
  for (const GList* at = items; at != nullptr; at = at->next) {
    entries.push_back(EntryText(GTK_MENU_ITEM(at->data)));
  }
  g_list_free(items);
  return entries;
}

wxPoint MenuPlace() {
  GtkWidget* const menu = Menu();
  if (menu == nullptr) throw std::runtime_error("there is no menu");
  wxPoint place;
  gdk_window_get_origin(gtk_widget_get_window(menu), &place.x, &place.y);
  return place;
}

wxPoint MousePlace() { return wxGetMousePosition(); }

void DismissFront() {
  if (GtkWidget* const menu = Menu()) {
    gtk_menu_shell_cancel(GTK_MENU_SHELL(menu));
  } else if (GtkMessageDialog* const box = MessageBox()) {
    gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_DELETE_EVENT);
  } else if (wxDialog* const dialog = FrontDialog()) {
    dialog->EndModal(wxID_CANCEL);
  }
}

}  // namespace imptable
