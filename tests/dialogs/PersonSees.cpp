// What a person sees.

#include <gtk/gtk.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/grid.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/textentry.h>

#include <stdexcept>

#include "tests/dialogs/Person.h"

namespace imptable {
namespace {

std::string AccessibleNameOf(GtkWidget* widget) {
  const char* const name = atk_object_get_name(gtk_widget_get_accessible(widget));
  return name == nullptr ? "" : name;
}

}  // namespace

std::string Person::Sees(const std::string& control) {
  return Ask(control, [](wxWindow& window) -> std::string {
    if (const auto* const text = dynamic_cast<wxTextEntry*>(&window)) {
      return text->GetValue().utf8_string();
    }
    if (const auto* const check = dynamic_cast<wxCheckBox*>(&window)) {
      return check->GetValue() ? "1" : "0";
    }
    if (const auto* const option = dynamic_cast<wxRadioButton*>(&window)) {
      return option->GetValue() ? "1" : "0";
    }
    for (wxWindow* const child : window.GetChildren()) {
      const auto* const text = dynamic_cast<wxTextEntry*>(child);
      if (text != nullptr && child->IsShown()) return text->GetValue().utf8_string();
    }
    return window.GetLabel().utf8_string();
  });
}

std::string Person::SeesCell(const std::string& grid, int row, int column) {
  return Ask(grid, [&](wxWindow& window) {
    auto& control = dynamic_cast<wxGrid&>(window);
    const bool is_there = row < control.GetNumberRows() && column < control.GetNumberCols();
    return is_there ? control.GetCellValue(row, column).utf8_string() : std::string();
  });
}

std::string Person::Header(const std::string& grid) {
  return Ask(grid, [](wxWindow& window) {
    const auto& control = dynamic_cast<wxGrid&>(window);
    std::string header;
    for (int column = 0; column < control.GetNumberCols(); ++column) {
      header += (column == 0 ? "" : "|") + control.GetColLabelValue(column).utf8_string();
    }
    return header;
  });
}

std::string Person::Entries(const std::string& list) {
  return Ask(list, [](wxWindow& window) {
    std::string entries;
    for (const wxString& entry : dynamic_cast<wxItemContainer&>(window).GetStrings()) {
      entries += (entries.empty() ? "" : " ") + entry.utf8_string();
    }
    return entries;
  });
}

std::vector<std::string> Person::Lines() {
  return Ask("List1", [](wxWindow& window) {
    const auto& list = dynamic_cast<wxListView&>(window);
    std::vector<std::string> lines;
    for (int line = 0; line < list.GetItemCount(); ++line) {
      lines.push_back((list.IsSelected(line) ? ">" : "") +
                      (list.GetItemText(line, 0) + '|' + list.GetItemText(line, 1)).utf8_string());
    }
    return lines;
  });
}

bool Person::IsMasked(const std::string& field) {
  return Ask(field, [&](wxWindow& window) {
    for (wxWindow* const child : window.GetChildren()) {
      if (child->IsShown()) return child->HasFlag(wxTE_PASSWORD);
    }
    throw std::runtime_error(field + " is no password field");
  });
}

bool Person::IsEnabled(const std::string& control) {
  return Ask(control, [](wxWindow& window) { return window.IsEnabled(); });
}

std::string Person::AccessibleName(const std::string& control) {
  return Ask(control,
             [](wxWindow& window) { return AccessibleNameOf(GTK_WIDGET(window.GetHandle())); });
}

std::string Person::AccessibleNameOfFocus() {
  return OnMainThread([] {
    GtkWidget* const window = GTK_WIDGET(FrontDialog()->GetHandle());
    return AccessibleNameOf(gtk_window_get_focus(GTK_WINDOW(window)));
  });
}

int Person::FrontTab() {
  return Ask("SSTab1",
             [](wxWindow& window) { return dynamic_cast<wxNotebook&>(window).GetSelection(); });
}

std::string Person::Focused() {
  return OnMainThread([]() -> std::string {
    wxWindow* focus = wxWindow::FindFocus();
    // The inner windows of a grid or a field have names of the toolkit's.
    while (focus != nullptr && !focus->IsTopLevel()) {
      const std::string name = focus->GetName().utf8_string();
      if (dynamic_cast<wxGrid*>(focus) != nullptr ||
          (name != "text" && name != "panel" && name != "gridwindow" && name != "GridWindow")) {
        return name;
      }
      focus = focus->GetParent();
    }
    return {};
  });
}

}  // namespace imptable
