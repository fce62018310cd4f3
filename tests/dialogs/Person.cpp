#include "tests/dialogs/Person.h"

#include <gtk/gtk.h>
#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/grid.h>
#include <wx/listbox.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/textentry.h>
#include <wx/toplevel.h>

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <stdexcept>
#include <thread>

#include "tests/scenarios/ChildProcess.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPatience{20000};
constexpr milliseconds kGlance{30};  // between two looks

/// Runs a question on the main thread and hands its answer back.
template <typename Question>
auto OnMainThread(Question question) {
  using Answer = decltype(question());
  auto answer = std::make_shared<std::promise<Answer>>();
  std::future<Answer> result = answer->get_future();
  wxTheApp->CallAfter([answer, question = std::move(question)] {
    try {
      if constexpr (std::is_void_v<Answer>) {
        question();
        answer->set_value();
      } else {
        answer->set_value(question());
      }
    } catch (...) {
      answer->set_exception(std::current_exception());
    }
  });
  if (result.wait_for(kPatience) != std::future_status::ready) {
    throw std::runtime_error("the dialogs don't answer");
  }
  return result.get();
}

wxDialog* FrontDialog() {
  for (auto at = wxTopLevelWindows.GetLast(); at != nullptr; at = at->GetPrevious()) {
    auto* const dialog = dynamic_cast<wxDialog*>(at->GetData());
    if (dialog != nullptr && dialog->IsShown() && dialog->IsModal()) return dialog;
  }
  return nullptr;
}

wxWindow* Control(const std::string& name) {
  wxDialog* const dialog = FrontDialog();
  wxWindow* const control =
      dialog == nullptr ? nullptr : wxWindow::FindWindowByName(wxString::FromUTF8(name), dialog);
  if (control == nullptr) throw std::runtime_error("there is no control " + name);
  return control;
}

/// What a control's place on the screen is; empty while it can't be clicked.
std::optional<wxRect> PlaceOf(const std::string& name) {
  wxWindow* const control = Control(name);
  if (!control->IsShownOnScreen() || !control->IsEnabled()) return std::nullopt;
  return control->GetScreenRect();
}

template <typename Look>
auto WaitFor(Look look, const std::string& what) {
  const auto end = steady_clock::now() + kPatience;
  while (steady_clock::now() < end) {
    if (auto found = OnMainThread(look)) return *found;
    std::this_thread::sleep_for(kGlance);
  }
  throw std::runtime_error("waited in vain for " + what);
}

void ClickAt(const wxPoint& point, int times) {
  std::vector<std::string> words{"xdotool", "mousemove", std::to_string(point.x),
                                 std::to_string(point.y)};
  words.insert(words.end(), {"click", "--repeat", std::to_string(times), "--delay", "60", "1"});
  RunProgram(words);
}

/// Where a click on the control goes.
wxPoint AimAt(const std::string& name) {
  // A box or option is as wide as its page: its mark is at the left.
  constexpr int kMark = 12;
  const auto place = WaitFor([&] { return PlaceOf(name); }, name + " that can be clicked");
  const int x = name.starts_with("chk") || name.starts_with("opt") || name.starts_with("Opt")
                    ? kMark
                    : place.width / 2;
  return {place.x + x, place.y + place.height / 2};
}

}  // namespace

std::string RunProgram(const std::vector<std::string>& words) {
  const char* const display = std::getenv("DISPLAY");
  return OutputOf({.words = words, .environment = {{"DISPLAY", display ? display : ""}}});
}

void Person::WaitUntil(const std::function<bool()>& condition, const std::string& what) {
  WaitFor([&] { return condition() ? std::optional<bool>(true) : std::nullopt; }, what);
}

void Person::WaitForDialog(const std::string& name) {
  WaitUntil(
      [&] {
        wxDialog* const dialog = FrontDialog();
        return dialog != nullptr && dialog->GetName() == name && dialog->IsActive();
      },
      "the dialog " + name);
}

void Person::WaitUntilGone(const std::string& name) {
  WaitUntil(
      [&] {
        wxDialog* const dialog = FrontDialog();
        return dialog == nullptr || dialog->GetName() != name;
      },
      "the end of " + name);
}

void Person::Click(const std::string& control) { ClickAt(AimAt(control), 1); }

void Person::DoubleClick(const std::string& control) { ClickAt(AimAt(control), 2); }

void Person::ClickCell(const std::string& grid, int row, int column) {
  WaitFor([&] { return PlaceOf(grid); }, grid);
  const wxRect cell = OnMainThread([&] {
    auto* const control = dynamic_cast<wxGrid*>(Control(grid));
    if (row >= control->GetNumberRows() || column >= control->GetNumberCols()) {
      throw std::runtime_error(grid + " has no such cell");
    }
    control->MakeCellVisible(row, column);
    wxRect place = control->CellToRect(row, column);
    place.SetPosition(control->GetGridWindow()->ClientToScreen(
        control->CalcScrolledPosition(place.GetPosition())));
    return place;
  });
  ClickAt({cell.x + cell.width / 2, cell.y + cell.height / 2}, 1);
}

void Person::OpenList(const std::string& field) {
  constexpr int kArrow = 14;  // from the right edge
  const wxRect place = WaitFor([&] { return PlaceOf(field); }, field);
  ClickAt({place.x + place.width - kArrow, place.y + place.height / 2}, 1);
  constexpr milliseconds kUntilOpen{400};
  std::this_thread::sleep_for(kUntilOpen);
}

void Person::ClickEntry(const std::string& list, int entry) {
  WaitFor([&] { return PlaceOf(list); }, list);
  // Entries of one height fill the list from its top.
  const wxRect place = *OnMainThread([&] { return PlaceOf(list); });
  const int height = OnMainThread([&] {
    auto* const box = dynamic_cast<wxListBox*>(Control(list));
    int y = 0;
    while (y < box->GetSize().y && box->HitTest(5, y + 2) == 0) ++y;
    return y;
  });
  ClickAt({place.x + place.width / 2, place.y + height * entry + height / 2}, 1);
}

void Person::ClickTab(int tab) {
  const wxPoint place = OnMainThread([&] {
    auto* const tabs = dynamic_cast<wxNotebook*>(Control("SSTab1"));
    // Toolkits tell which tab is at a point, but not where a tab is.
    const int y = tabs->GetClientRect().y + 12;
    for (int x = 2; x < tabs->GetSize().x; x += 4) {
      if (tabs->HitTest({x, y}) == tab) return tabs->ClientToScreen({x + 10, y});
    }
    throw std::runtime_error("there is no tab " + std::to_string(tab));
  });
  ClickAt(place, 1);
  WaitUntil([&] { return dynamic_cast<wxNotebook*>(Control("SSTab1"))->GetSelection() == tab; },
            "tab " + std::to_string(tab));
}

void Person::Press(const std::string& keys) { RunProgram({"xdotool", "key", keys}); }

void Person::Type(const std::string& text) {
  RunProgram({"xdotool", "type", "--delay", "8", "--", text});
}

void Person::Fill(const std::string& field, const std::string& text) {
  // A busy machine loses a key now and then, when the focus comes late.
  constexpr int kTries = 3;
  for (int tried = 0; tried < kTries; ++tried) {
    Click(field);
    Press("ctrl+a");
    Press("Delete");
    if (!text.empty()) Type(text);
    std::this_thread::sleep_for(kGlance);
    if (Sees(field) == text) return;
  }
  throw std::runtime_error(field + " doesn't take " + text + ", it holds " + Sees(field));
}

std::string Person::Sees(const std::string& control) {
  const auto look = [&]() -> std::string {
    wxWindow* const window = Control(control);
    if (const auto* const text = dynamic_cast<wxTextEntry*>(window)) {
      return text->GetValue().utf8_string();
    }
    if (const auto* const check = dynamic_cast<wxCheckBox*>(window)) {
      return check->GetValue() ? "1" : "0";
    }
    if (const auto* const option = dynamic_cast<wxRadioButton*>(window)) {
      return option->GetValue() ? "1" : "0";
    }
    for (wxWindow* const child : window->GetChildren()) {
      const auto* const text = dynamic_cast<wxTextEntry*>(child);
      if (text != nullptr && child->IsShown()) return text->GetValue().utf8_string();
    }
    return window->GetLabel().utf8_string();
  };
  return wxIsMainThread() ? look() : OnMainThread(look);
}

std::string Person::SeesCell(const std::string& grid, int row, int column) {
  const auto look = [&]() -> std::string {
    auto* const control = dynamic_cast<wxGrid*>(Control(grid));
    const bool is_there = row < control->GetNumberRows() && column < control->GetNumberCols();
    return is_there ? control->GetCellValue(row, column).utf8_string() : std::string();
  };
  return wxIsMainThread() ? look() : OnMainThread(look);
}

std::string Person::Entries(const std::string& list) {
  const auto look = [&] {
    std::string entries;
    const auto* const items = dynamic_cast<wxItemContainer*>(Control(list));
    for (const wxString& entry : items->GetStrings()) {
      entries += (entries.empty() ? "" : " ") + entry.utf8_string();
    }
    return entries;
  };
  return wxIsMainThread() ? look() : OnMainThread(look);
}

bool Person::IsMasked(const std::string& field) {
  const auto look = [&] {
    for (wxWindow* const child : Control(field)->GetChildren()) {
      if (child->IsShown()) return child->HasFlag(wxTE_PASSWORD);
    }
    throw std::runtime_error(field + " is no password field");
  };
  return wxIsMainThread() ? look() : OnMainThread(look);
}

bool Person::IsEnabled(const std::string& control) {
  return OnMainThread([&] { return Control(control)->IsEnabled(); });
}

std::string Person::AccessibleName(const std::string& control) {
  return OnMainThread([&]() -> std::string {
    AtkObject* const accessible =
        gtk_widget_get_accessible(GTK_WIDGET(Control(control)->GetHandle()));
    const char* const name = atk_object_get_name(accessible);
    return name == nullptr ? "" : name;
  });
}

std::vector<std::string> Person::CutControls() {
  return OnMainThread([] {
    std::vector<std::string> cut;
    const std::function<void(wxWindow&)> look = [&](wxWindow& window) {
      for (wxWindow* const child : window.GetChildren()) {
        if (!child->IsShown()) continue;
        const wxSize best = child->GetBestSize();
        const wxSize size = child->GetSize();
        const bool has_caption = !child->GetLabel().empty() && child->GetChildren().empty();
        if (has_caption && (size.x < best.x || size.y < best.y)) {
          cut.push_back(child->GetName().utf8_string());
        }
        look(*child);
      }
    };
    look(*FrontDialog());
    return cut;
  });
}

int Person::FrontTab() {
  return OnMainThread([] { return dynamic_cast<wxNotebook*>(Control("SSTab1"))->GetSelection(); });
}

std::string Person::Focused() {
  const auto look = []() -> std::string {
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
  };
  return wxIsMainThread() ? look() : OnMainThread(look);
}

void Person::GiveUp() {
  OnMainThread([] {
    while (wxDialog* const dialog = FrontDialog()) {
      dialog->EndModal(wxID_CANCEL);
      dialog->Hide();
    }
  });
}

void Person::TakePicture(const std::string& file) {
  const wxRect place = OnMainThread([] {
    wxDialog* const dialog = FrontDialog();
    if (dialog == nullptr) throw std::runtime_error("there is no dialog");
    return dialog->GetScreenRect();
  });
  RunProgram({"import", "-window", "root", "-crop",
              std::to_string(place.width) + 'x' + std::to_string(place.height) + '+' +
                  std::to_string(place.x) + '+' + std::to_string(place.y),
              "+repage", file});
}

}  // namespace imptable
