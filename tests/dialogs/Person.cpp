// What a person does with hand and keyboard.

#include "tests/dialogs/Person.h"

#include <wx/dialog.h>
#include <wx/grid.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/math.h>
#include <wx/notebook.h>

#include <chrono>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

#include "tests/scenarios/ChildProcess.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;

/// The control's place on the screen; nullopt while it can't be clicked.
std::optional<wxRect> PlaceOf(const std::string& name) {
  const wxWindow& control = Control(name);
  if (!control.IsShownOnScreen() || !control.IsEnabled()) return std::nullopt;
  return control.GetScreenRect();
}

/// Words for xdotool. The mouse moves even when it is there already: a window that opened under a
/// resting mouse doesn't notice it.
std::vector<std::string> WordsToMoveTo(const wxPoint& place) {
  const double scale = OnMainThread([] { return FrontDialog()->GetContentScaleFactor(); });
  const wxPoint point(wxRound(place.x * scale), wxRound(place.y * scale));
  const std::string x = std::to_string(point.x);
  return {"xdotool",
          "mousemove",
          x,
          std::to_string(point.y - 1),
          "mousemove",
          x,
          std::to_string(point.y)};
}

void ClickAt(const wxPoint& point, int times) {
  std::vector<std::string> words = WordsToMoveTo(point);
  words.insert(words.end(), {"click", "--repeat", std::to_string(times), "--delay", "60", "1"});
  RunProgram(words);
}

/// Where a click on the control goes.
wxPoint AimAt(const std::string& name) {
  // A check box or option is as wide as its page, so aim at its mark, which is at the left.
  constexpr int kMark = 12;
  wxRect last;
  const wxRect place = WaitFor(
      [&] {
        auto now = PlaceOf(name);
        // A dialog that has just opened may still move.
        const bool rests = now && std::exchange(last, *now) == *now;
        return rests ? now : std::nullopt;
      },
      name + " that can be clicked");
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

std::vector<std::string> Person::WaitForMenu() { return WaitFor(OpenMenu, "a menu"); }

void Person::Choose(const std::string& entry) {
  std::string keys;
  for (const std::string& offered : WaitForMenu()) {
    // The keys skip lines and entries that can't be chosen.
    if (offered == "-" || offered.starts_with('[')) continue;
    keys += "Down ";
    if (offered == entry) return Press(keys + "Return");
  }
  throw std::runtime_error("the menu doesn't offer " + entry);
}

void Person::WaitForFocus(const std::string& control) {
  WaitUntil([&] { return Focused() == control; }, "the focus in " + control);
}

void Person::WaitForText(const std::string& control, const std::string& text) {
  WaitUntil([&] { return Sees(control) == text; }, control + " to show " + text);
}

void Person::WaitForCell(const std::string& grid, int row, int column, const std::string& text) {
  WaitUntil([&] { return SeesCell(grid, row, column) == text; }, grid + " to show " + text);
}

void Person::Click(const std::string& control) { ClickAt(AimAt(control), 1); }

void Person::Aim(const std::string& control) { RunProgram(WordsToMoveTo(AimAt(control))); }

void Person::ClickBlindly() { RunProgram({"xdotool", "click", "1"}); }

void Person::ClickHalf(const std::string& spinner, bool up) {
  const wxRect place = WaitFor([&] { return PlaceOf(spinner); }, spinner);
  // The buttons stand side by side, the one for less at the left.
  const int quarter = place.width / 4;
  ClickAt({place.x + (up ? 3 : 1) * quarter, place.y + place.height / 2}, 1);
}

void Person::ClickCell(const std::string& grid, int row, int column) {
  WaitFor([&] { return PlaceOf(grid); }, grid);
  wxRect last;
  // The cell moves until the grid has its size: only then the columns get their widths.
  const wxRect cell = WaitFor(
      [&] {
        const wxRect place = CellPlace(grid, row, column);
        const bool rests = std::exchange(last, place) == place;
        return rests ? std::optional<wxRect>(place) : std::nullopt;
      },
      grid + " to rest");
  ClickAt({cell.x + cell.width / 2, cell.y + cell.height / 2}, 1);
}

wxRect Person::CellPlace(const std::string& grid, int row, int column) {
  return Ask(grid, [&](wxWindow& window) {
    auto& control = dynamic_cast<wxGrid&>(window);
    if (row >= control.GetNumberRows() || column >= control.GetNumberCols()) {
      throw std::runtime_error(grid + " has no such cell");
    }
    control.MakeCellVisible(row, column);
    wxRect place = control.CellToRect(row, column);
    place.SetPosition(
        control.GetGridWindow()->ClientToScreen(control.CalcScrolledPosition(place.GetPosition())));
    return place;
  });
}

void Person::OpenList(const std::string& field) {
  constexpr int kArrow = 14;  // from the right edge
  const wxRect place = WaitFor([&] { return PlaceOf(field); }, field);
  ClickAt({place.x + place.width - kArrow, place.y + place.height / 2}, 1);
  constexpr milliseconds kUntilOpen{400};
  std::this_thread::sleep_for(kUntilOpen);
}

void Person::ClickEntry(const std::string& list, int entry) {
  const wxRect place = WaitFor([&] { return PlaceOf(list); }, list);
  // All entries have the same height, from the list's top.
  const int height = Ask(list, [](wxWindow& window) {
    const auto& box = dynamic_cast<wxListBox&>(window);
    int y = 0;
    while (y < box.GetSize().y && box.HitTest(5, y + 2) == 0) ++y;
    return y;
  });
  ClickAt({place.x + place.width / 2, place.y + height * entry + height / 2}, 1);
}

void Person::ClickLine(int line, int times) {
  const wxRect place = Ask("List1", [&](wxWindow& window) {
    const auto& list = dynamic_cast<wxListCtrl&>(window);
    wxRect rect;
    list.GetItemRect(line, rect);
    rect.SetPosition(list.ClientToScreen(rect.GetPosition()));
    return rect;
  });
  ClickAt({place.x + place.width / 2, place.y + place.height / 2}, times);
}

void Person::ClickTab(int tab) {
  const wxPoint place = Ask("SSTab1", [&](wxWindow& window) {
    const auto& tabs = dynamic_cast<wxNotebook&>(window);
    // Toolkits tell which tab is at a point, but not where a tab is.
    const int y = tabs.GetClientRect().y + 12;
    for (int x = 2; x < tabs.GetSize().x; x += 4) {
      if (tabs.HitTest({x, y}) == tab) return tabs.ClientToScreen(wxPoint(x + 10, y));
    }
    throw std::runtime_error("there is no tab " + std::to_string(tab));
  });
  ClickAt(place, 1);
  WaitUntil([&] { return FrontTab() == tab; }, "tab " + std::to_string(tab));
}

void Person::Press(const std::string& keys) {
  std::vector<std::string> words{"xdotool", "key"};
  std::istringstream all(keys);
  for (std::string key; all >> key;) words.push_back(key);
  RunProgram(words);
}

void Person::Type(const std::string& text) {
  RunProgram({"xdotool", "type", "--delay", "8", "--", text});
}

void Person::GoTo(const std::string& control) {
  constexpr int kMostStops = 60;
  constexpr milliseconds kUntilMoved{500};
  constexpr milliseconds kGlance{5};
  for (int stop = 0; stop < kMostStops; ++stop) {
    const std::string before = Focused();
    if (before == control) return;
    Press("Tab");
    const auto pressed = std::chrono::steady_clock::now();
    while (Focused() == before && std::chrono::steady_clock::now() < pressed + kUntilMoved) {
      std::this_thread::sleep_for(kGlance);
    }
  }
  throw std::runtime_error("Tab doesn't go to " + control);
}

void Person::Fill(const std::string& field, const std::string& text) {
  // On a busy machine the focus now and then comes too late for a key.
  constexpr int kTries = 3;
  constexpr milliseconds kUntilTaken{30};
  for (int tried = 0; tried < kTries; ++tried) {
    Click(field);
    Press("ctrl+a Delete");
    if (!text.empty()) Type(text);
    std::this_thread::sleep_for(kUntilTaken);
    if (Sees(field) == text) return;
  }
  throw std::runtime_error(field + " doesn't take " + text + ", it holds " + Sees(field));
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
