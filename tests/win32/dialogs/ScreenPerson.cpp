#include "tests/win32/dialogs/ScreenPerson.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include "automation/AutomationText.h"
#include "tests/win32/dialogs/ScreenPicture.h"
#include "tests/win32/dialogs/ScreenWindows.h"
#include "tests/win32/dialogs/SeenControls.h"
#include "tests/win32/dialogs/Waiting.h"

namespace imptable {
namespace {

constexpr std::wstring_view kTabs = L"_wx_SysTabCtl32";
constexpr std::wstring_view kSpinner = L"msctls_updown32";
constexpr std::wstring_view kMenu = L"#32768";

/// Gives each event its place. A pointer that was only moved there before may be moved back by a
/// late message of the screen.
void MouseAt(const POINT& point, DWORD event) {
  constexpr LONG kAll = 0x10000;  // stands for the whole screen
  const auto part = [](LONG at, int size) {
    return static_cast<DWORD>((at * kAll + size - 1) / size);
  };
  mouse_event(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | event,
              part(point.x, GetSystemMetrics(SM_CXSCREEN)),
              part(point.y, GetSystemMetrics(SM_CYSCREEN)), 0, 0);
  std::this_thread::sleep_for(kGlance);
}

void ClickAt(const POINT& point) {
  MouseAt(point, 0);
  MouseAt(point, MOUSEEVENTF_LEFTDOWN);
  MouseAt(point, MOUSEEVENTF_LEFTUP);
}

void SendKey(WORD key, WORD scan, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = scan;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

/// Marks the keys between the letters and the number pad. Unmarked, they are those of the number
/// pad.
DWORD KeyFlags(WORD key) {
  const bool is_extended = key >= VK_PRIOR && key <= VK_DOWN;
  return is_extended ? KEYEVENTF_EXTENDEDKEY : 0;
}

bool HasTabs(HWND window) { return FindIn(window, kTabs) != nullptr; }

/// A dialog of text and buttons.
bool IsMessageBox(HWND window) {
  return !HasTabs(window) && FindIn(window, L"Static") != nullptr &&
         FindIn(window, L"Edit") == nullptr && FindIn(window, L"ListBox") == nullptr;
}

/// A box or option, whose mark is at its left.
bool IsMarked(HWND button) {
  const LONG_PTR kind = GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK;
  return kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_RADIOBUTTON ||
         kind == BS_AUTORADIOBUTTON;
}

/// Where the window is, with the frame of openbox.
RECT FrameOf(HWND window) {
  constexpr LONG kLine = 1;
  constexpr LONG kTitle = 20;
  constexpr LONG kHandle = 5;
  RECT place{};
  GetClientRect(window, &place);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&place), 2);
  const bool can_be_resized = (GetWindowLongPtrW(window, GWL_STYLE) & WS_THICKFRAME) != 0;
  return {place.left - kLine, place.top - kTitle, place.right + kLine,
          place.bottom + (can_be_resized ? kHandle : kLine)};
}

}  // namespace

HWND ScreenPerson::Front() const {
  const HWND front = GetForegroundWindow();
  DWORD process = 0;
  GetWindowThreadProcessId(front, &process);
  return front == host_ || process != process_ ? nullptr : front;
}

HWND ScreenPerson::WaitForTaskDialog() const {
  return WaitFor([&] { return HasTabs(Front()) ? Front() : nullptr; }, "the task's dialog");
}

std::wstring ScreenPerson::WaitForOther() const {
  return TextOf(WaitFor(
      [&]() -> HWND {
        const HWND front = Front();
        return front == nullptr || HasTabs(front) ? nullptr : front;
      },
      "another window"));
}

std::wstring ScreenPerson::AnswerBox(int key) const {
  const HWND box = WaitFor([&] { return IsMessageBox(Front()) ? Front() : nullptr; }, "a box");
  std::wstring text;
  for (const HWND each : WindowsIn(box)) {
    if (ClassOf(each) == L"Static") text += TextOf(each);
  }
  Press(key);
  WaitUntilGone(box);
  return text;
}

void ScreenPerson::WaitUntilGone(HWND window) const {
  WaitUntil([&] { return IsWindowVisible(window) == FALSE && Front() != window; },
            "the end of a window");
}

void ScreenPerson::WaitUntil(const std::function<bool()>& condition, const std::string& what) {
  WaitFor(condition, what);
}

void ScreenPerson::Click(const std::wstring& caption) const {
  const HWND button = WaitFor(
      [&]() -> HWND {
        const HWND found = FindIn(Front(), L"Button", caption);
        return found == nullptr || IsWindowEnabled(found) == FALSE ? nullptr : found;
      },
      FromWide(caption));
  constexpr int kMark = 8;
  POINT place = MiddleOf(button);
  if (IsMarked(button)) place.x = PlaceOf(button).left + kMark;
  ClickAt(place);
}

void ScreenPerson::ClickTab(int tab) const {
  const HWND tabs = WaitFor([&] { return FindIn(Front(), kTabs); }, "the tabs");
  ClickAt(PlaceOfTab(tabs, tab));
  WaitUntil([&] { return AskWindow(tabs, TCM_GETCURSEL) == tab; }, "a tab");
}

void ScreenPerson::GoToTab(int tab) const {
  const HWND tabs = WaitFor([&] { return FindIn(Front(), kTabs); }, "the tabs");
  for (LRESULT at = AskWindow(tabs, TCM_GETCURSEL); at < tab; ++at) {
    PressWith(VK_CONTROL, VK_NEXT);
    WaitUntil([&] { return AskWindow(tabs, TCM_GETCURSEL) == at + 1; }, "the next tab");
  }
}

void ScreenPerson::ClickCell(std::size_t grid, std::size_t row, std::size_t column) const {
  const auto look = [&]() -> std::optional<POINT> {
    const std::vector<HWND> grids = GridsIn(Front());
    if (grid >= grids.size()) return std::nullopt;
    const RECT place = PlaceOf(grids[grid]);
    std::optional<POINT> cell = MiddleOfCell(ScreenPicture(place), row, column);
    if (!cell) return std::nullopt;
    return POINT{place.left + cell->x, place.top + cell->y};
  };
  ClickAt(*WaitFor(look, "a cell of a grid"));
}

void ScreenPerson::ChooseType(std::size_t row, TypeMenuLine line) const {
  ClickCell(0, row, 1);
  ChooseInMenu(line);
}

void ScreenPerson::ChooseInMenu(TypeMenuLine line) const {
  WaitForMenu();
  Press(VK_DOWN, static_cast<int>(line));
  Press(VK_RETURN);
  WaitForMenu(false);
}

void ScreenPerson::ChooseNumber(std::size_t row, NumberLine line) const {
  ClickCell(0, row, 1);
  WaitForMenu();
  Press(VK_DOWN, static_cast<int>(TypeMenuLine::kNumeric));
  Press(VK_RIGHT);
  Press(VK_DOWN, static_cast<int>(line));
  Press(VK_RETURN);
  WaitForMenu(false);
}

void ScreenPerson::WaitForMenu(bool is_open) const {
  const auto is_any_open = [] {
    HWND menu = nullptr;
    while ((menu = FindWindowExW(nullptr, menu, kMenu.data(), nullptr)) != nullptr) {
      if (IsWindowVisible(menu) != FALSE) return true;
    }
    return false;
  };
  WaitUntil([&] { return is_open == is_any_open(); }, is_open ? "a menu" : "the end of a menu");
}

void ScreenPerson::Fill(const std::wstring& label, const std::wstring& text) const {
  const HWND field = WaitFor([&] { return FieldOf(Front(), label); }, FromWide(label));
  ClickAt(MiddleOf(field));
  Press(VK_END);
  for (std::size_t left = TextOf(field).size(); left > 0; --left) Press(VK_BACK);
  Type(text);
  WaitUntil([&] { return TextOf(field) == text; }, FromWide(label + L" to hold " + text));
}

std::wstring ScreenPerson::Sees(const std::wstring& label) const {
  return TextOf(WaitFor([&] { return FieldOf(Front(), label); }, FromWide(label)));
}

void ScreenPerson::WaitToSee(const std::wstring& label, const std::wstring& text) const {
  WaitUntil([&] { return Sees(label) == text; }, FromWide(text + L" in " + label));
}

void ScreenPerson::WaitForText(const std::wstring& text) const {
  WaitUntil([&] { return SeesText(text); }, FromWide(text));
}

bool ScreenPerson::SeesText(const std::wstring& text) const {
  return std::ranges::any_of(WindowsIn(Front()), [&](HWND each) { return TextOf(each) == text; });
}

bool ScreenPerson::OffersSource(const std::wstring& name) const {
  const HWND list = WaitFor([&] { return FindIn(Front(), L"ComboBox"); }, "the sources");
  return AskWindow(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                   reinterpret_cast<LPARAM>(name.c_str())) != CB_ERR;
}

bool ScreenPerson::IsChecked(const std::wstring& caption) const {
  const HWND box = WaitFor([&] { return FindIn(Front(), L"Button", caption); }, FromWide(caption));
  return AskWindow(box, BM_GETCHECK) == BST_CHECKED;
}

void ScreenPerson::ClickVariableButton(const std::wstring& label) const {
  const HWND button = WaitFor(
      [&]() -> HWND {
        const HWND field = FieldOf(Front(), label);
        if (field == nullptr) return nullptr;
        for (const HWND each : WindowsIn(Front())) {
          const RECT place = PlaceOf(each);
          const LONG line = MiddleOf(field).y;
          const bool is_beside =
              place.left >= PlaceOf(field).right - 1 && place.top < line && place.bottom > line;
          if (is_beside && ClassOf(each) == L"Button" && TextOf(each) == L"@") return each;
        }
        return nullptr;
      },
      FromWide(L"the variable button of " + label));
  ClickAt(MiddleOf(button));
}

bool ScreenPerson::IsMasked(const std::wstring& label) const {
  const HWND field = WaitFor([&] { return FieldOf(Front(), label); }, FromWide(label));
  return AskWindow(field, EM_GETPASSWORDCHAR) != 0;
}

HWND ScreenPerson::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(host_, nullptr), &info);
  return info.hwndFocus;
}

HWND ScreenPerson::ControlOf(const std::wstring& label) const {
  const HWND button = FindIn(Front(), L"Button", label);
  const bool is_frame =
      button != nullptr && (GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
  return button != nullptr && !is_frame ? button : FieldOf(Front(), label);
}

void ScreenPerson::GoToWindow(const std::function<HWND()>& find, const std::string& what,
                              int key) const {
  constexpr int kMostStops = 40;
  constexpr int kGlancesAtFocus = 100;
  for (int stop = 0; stop < kMostStops; ++stop) {
    const HWND focus = WaitFor([&] { return Focus(); }, "any focus");
    if (focus == WaitFor(find, what)) return;
    Press(key);
    // A key that comes while the dialog still goes to a tab may have no effect.
    for (int glance = 0; glance < kGlancesAtFocus && Focus() == focus; ++glance) {
      std::this_thread::sleep_for(kGlance);
    }
  }
  throw std::runtime_error("the focus doesn't get to " + what);
}

void ScreenPerson::GoTo(const std::wstring& label, int key) const {
  GoToWindow([&] { return ControlOf(label); }, FromWide(label), key);
}

void ScreenPerson::GoToGrid(std::size_t grid) const {
  GoToWindow(
      [&] {
        const std::vector<HWND> grids = GridsIn(Front());
        return grid < grids.size() ? grids[grid] : nullptr;
      },
      "a grid", VK_TAB);
}

void ScreenPerson::WaitForFocus(const std::wstring& label) const {
  WaitUntil([&] { return Focus() != nullptr && Focus() == ControlOf(label); },
            FromWide(L"the focus in " + label));
}

HWND ScreenPerson::WaitForList() const {
  return WaitFor(
      [&]() -> HWND {
        const HWND list = FindIn(Front(), L"ListBox");
        return list != nullptr && HasHighlight(list) ? list : nullptr;
      },
      "a list with a selected entry");
}

void ScreenPerson::ClickEntry(const std::wstring& entry) const {
  const HWND list = WaitForList();
  const LRESULT found = AskWindow(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                  reinterpret_cast<LPARAM>(entry.c_str()));
  if (found == LB_ERR) throw std::runtime_error("the list doesn't offer " + FromWide(entry));
  const LRESULT height = AskWindow(list, LB_GETITEMHEIGHT);
  const LRESULT first = AskWindow(list, LB_GETTOPINDEX);
  POINT place = MiddleOf(list);
  place.y = PlaceOf(list).top + static_cast<LONG>((found - first) * height + height / 2);
  ClickAt(place);
}

void ScreenPerson::DoubleClickFirstLine() const {
  constexpr LONG kInLine = 10;
  const HWND list = WaitFor([&] { return FindIn(Front(), L"SysListView32"); }, "a list");
  const POINT place{MiddleOf(list).x, PlaceOf(list).top + kInLine};
  ClickAt(place);
  ClickAt(place);
}

void ScreenPerson::ClickSpinner(bool up) const {
  const HWND spinner = WaitFor([&] { return FindIn(Front(), kSpinner); }, "a spinner");
  const RECT place = PlaceOf(spinner);
  POINT arrow = MiddleOf(spinner);
  arrow.y += (up ? -1 : 1) * (place.bottom - place.top) / 4;
  ClickAt(arrow);
}

void ScreenPerson::Press(int key, int times) {
  const auto code = static_cast<WORD>(key);
  const auto scan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  for (; times > 0; --times) {
    SendKey(code, scan, KeyFlags(code));
    SendKey(code, scan, KeyFlags(code) | KEYEVENTF_KEYUP);
    std::this_thread::sleep_for(kGlance);
  }
}

void ScreenPerson::PressWith(int held_key, int key) {
  const auto held = static_cast<WORD>(held_key);
  const auto scan = static_cast<WORD>(MapVirtualKeyW(held, MAPVK_VK_TO_VSC));
  SendKey(held, scan, 0);
  Press(key);
  SendKey(held, scan, KEYEVENTF_KEYUP);
}

void ScreenPerson::Type(const std::wstring& text) {
  for (const wchar_t character : text) {
    SendKey(0, static_cast<WORD>(character), KEYEVENTF_UNICODE);
    SendKey(0, static_cast<WORD>(character), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

void ScreenPerson::TakePicture(const std::wstring& file) const {
  constexpr std::chrono::milliseconds kPainting{300};
  std::this_thread::sleep_for(kPainting);
  ScreenPicture(FrameOf(Front())).Save(file);
}

}  // namespace imptable
