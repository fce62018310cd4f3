#include "tests/win32/dialogs/ScreenPerson.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <thread>

#include "plugin/automation/AutomationText.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPatience{10000};
constexpr milliseconds kGlance{30};  // between two looks
constexpr std::wstring_view kTabs = L"_wx_SysTabCtl32";
constexpr UINT kAnswerTime = 5000;  // milliseconds
constexpr int kMark = 8;            // of a box or option, from its left

LRESULT Ask(HWND window, UINT message, WPARAM word, LPARAM pointer) {
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(window, message, word, pointer, SMTO_ABORTIFHUNG, kAnswerTime, &answer) ==
      0) {
    throw std::runtime_error("a window doesn't answer");
  }
  return static_cast<LRESULT>(answer);
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  if (IsWindowVisible(window) != FALSE) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

/// All visible windows inside.
std::vector<HWND> WindowsIn(HWND parent) {
  std::vector<HWND> windows;
  if (parent != nullptr) EnumChildWindows(parent, &Collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

HWND FindIn(HWND parent, std::wstring_view kind) {
  for (const HWND each : WindowsIn(parent)) {
    if (ClassOf(each) == kind) return each;
  }
  return nullptr;
}

HWND FindIn(HWND parent, std::wstring_view kind, std::wstring_view caption) {
  for (const HWND each : WindowsIn(parent)) {
    std::wstring text = TextOf(each);
    std::erase(text, L'&');
    text.erase(text.find_last_not_of(L' ') + 1);
    if (ClassOf(each) == kind && text == caption) return each;
  }
  return nullptr;
}

/// The field right of a label, on its line.
HWND FieldOf(HWND parent, std::wstring_view label) {
  const HWND text = FindIn(parent, L"Static", label);
  if (text == nullptr) return nullptr;
  const RECT at = PlaceOf(text);
  const LONG line = (at.top + at.bottom) / 2;
  HWND nearest = nullptr;
  for (const HWND each : WindowsIn(parent)) {
    const RECT place = PlaceOf(each);
    if (ClassOf(each) != L"Edit" || place.left < at.right || place.top > line ||
        place.bottom < line) {
      continue;
    }
    if (nearest == nullptr || place.left < PlaceOf(nearest).left) nearest = each;
  }
  return nearest;
}

/// Windows within which the toolkit paints cells.
std::vector<HWND> GridsIn(HWND parent) {
  constexpr LONG kLeastSize = 80;
  std::vector<HWND> grids;
  for (const HWND each : WindowsIn(parent)) {
    const RECT place = PlaceOf(each);
    if (ClassOf(each).starts_with(L"wxWindow") && GetWindow(each, GW_CHILD) == nullptr &&
        place.bottom - place.top >= kLeastSize && place.right - place.left >= kLeastSize) {
      grids.push_back(each);
    }
  }
  std::ranges::sort(grids, {}, [](HWND each) { return PlaceOf(each).left; });
  return grids;
}

void ClickAt(LONG x, LONG y) {
  SetCursorPos(x, y);
  std::this_thread::sleep_for(kGlance);
  mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
  std::this_thread::sleep_for(kGlance);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
  std::this_thread::sleep_for(kGlance);
}

void SendKey(WORD key, WORD scan, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = scan;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

template <typename Look>
auto WaitFor(Look look, const std::wstring& what) {
  const auto end = steady_clock::now() + kPatience;
  while (steady_clock::now() < end) {
    if (const auto found = look()) return found;
    std::this_thread::sleep_for(kGlance);
  }
  throw std::runtime_error("waited in vain for " + FromWide(what));
}

bool HasTabs(HWND window) { return FindIn(window, kTabs) != nullptr; }

}  // namespace

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
  const LRESULT length =
      Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

HWND ScreenPerson::Front() const {
  const HWND front = GetForegroundWindow();
  DWORD process = 0;
  GetWindowThreadProcessId(front, &process);
  return front == host_ || process != GetCurrentProcessId() ? nullptr : front;
}

HWND ScreenPerson::WaitForTaskDialog() {
  return WaitFor([&] { return HasTabs(Front()) ? Front() : nullptr; }, L"the task's dialog");
}

std::wstring ScreenPerson::WaitForOther() {
  return TextOf(WaitFor(
      [&]() -> HWND {
        const HWND front = Front();
        return front == nullptr || HasTabs(front) ? nullptr : front;
      },
      L"another window"));
}

std::wstring ScreenPerson::AnswerBox() {
  WaitForOther();
  const HWND box = Front();
  std::wstring text;
  for (const HWND each : WindowsIn(box)) {
    if (ClassOf(each) == L"Static") text += TextOf(each);
  }
  Press(VK_RETURN);
  WaitUntil([&] { return Front() != box; }, "the end of a box");
  return text;
}

void ScreenPerson::WaitUntil(const std::function<bool()>& condition,
                             const std::string& what) const {
  WaitFor(condition, ToWide(what));
}

void ScreenPerson::Click(const std::wstring& caption) const {
  const HWND button = WaitFor(
      [&]() -> HWND {
        const HWND found = FindIn(Front(), L"Button", caption);
        return found == nullptr || IsWindowEnabled(found) == FALSE ? nullptr : found;
      },
      caption);
  const RECT place = PlaceOf(button);
  const LONG_PTR kind = GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK;
  const bool is_marked = kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_RADIOBUTTON ||
                         kind == BS_AUTORADIOBUTTON;
  ClickAt(is_marked ? place.left + kMark : (place.left + place.right) / 2,
          (place.top + place.bottom) / 2);
}

void ScreenPerson::ClickTab(int tab) const {
  const HWND tabs = WaitFor([&] { return FindIn(Front(), kTabs); }, L"the tabs");
  RECT place{};
  Ask(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
  POINT point{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  ClientToScreen(tabs, &point);
  ClickAt(point.x, point.y);
  WaitUntil([&] { return Ask(tabs, TCM_GETCURSEL, 0, 0) == tab; }, "a tab");
}

void ScreenPerson::ClickGrid(std::size_t grid) const {
  const HWND window = WaitFor(
      [&]() -> HWND {
        const std::vector<HWND> grids = GridsIn(Front());
        return grid < grids.size() ? grids[grid] : nullptr;
      },
      L"a grid");
  const RECT place = PlaceOf(window);
  constexpr LONG kInside = 8;
  ClickAt(place.left + kInside, place.top + kInside);
}

void ScreenPerson::WaitForMenu(bool is_open) const {
  WaitUntil(
      [&] {
        const HWND menu = FindWindowW(L"#32768", nullptr);
        return is_open == (menu != nullptr && IsWindowVisible(menu) != FALSE);
      },
      "a menu");
}

void ScreenPerson::Fill(const std::wstring& label, const std::wstring& text) const {
  const HWND field = WaitFor([&] { return FieldOf(Front(), label); }, label);
  const RECT place = PlaceOf(field);
  ClickAt((place.left + place.right) / 2, (place.top + place.bottom) / 2);
  Press(VK_END);
  for (std::size_t left = TextOf(field).size(); left > 0; --left) Press(VK_BACK);
  Type(text);
  WaitUntil([&] { return TextOf(field) == text; }, FromWide(label + L" to hold " + text));
}

std::wstring ScreenPerson::Sees(const std::wstring& label) const {
  return TextOf(WaitFor([&] { return FieldOf(Front(), label); }, label));
}

bool ScreenPerson::SeesText(const std::wstring& text) const {
  return std::ranges::any_of(WindowsIn(Front()), [&](HWND each) { return TextOf(each) == text; });
}

bool ScreenPerson::OffersSource(const std::wstring& name) const {
  const HWND list = WaitFor([&] { return FindIn(Front(), L"ComboBox"); }, L"the sources");
  return Ask(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
             reinterpret_cast<LPARAM>(name.c_str())) != CB_ERR;
}

bool ScreenPerson::IsChecked(const std::wstring& caption) const {
  const HWND box = WaitFor([&] { return FindIn(Front(), L"Button", caption); }, caption);
  return Ask(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void ScreenPerson::Press(int key) {
  const auto code = static_cast<WORD>(key);
  const auto scan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  SendKey(code, scan, 0);
  SendKey(code, scan, KEYEVENTF_KEYUP);
  std::this_thread::sleep_for(kGlance);
}

void ScreenPerson::Type(const std::wstring& text) {
  for (const wchar_t character : text) {
    SendKey(0, static_cast<WORD>(character), KEYEVENTF_UNICODE);
    SendKey(0, static_cast<WORD>(character), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
  }
}

void ScreenPerson::CloseDialogs() const {
  const HWND front = Front();
  if (front != nullptr) PostMessageW(front, WM_CLOSE, 0, 0);
  std::this_thread::sleep_for(kGlance);
}

void ScreenPerson::TakePicture(const std::wstring& file) const {
  constexpr milliseconds kPainting{300};
  std::this_thread::sleep_for(kPainting);
  const RECT place = PlaceOf(Front());
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ former = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  const auto size = static_cast<DWORD>(width * height * 4);
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;  // "BM"
  header.bfOffBits = sizeof header + sizeof info.bmiHeader;
  header.bfSize = header.bfOffBits + size;
  const HANDLE out = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  WriteFile(out, &header, sizeof header, &written, nullptr);
  WriteFile(out, &info.bmiHeader, sizeof info.bmiHeader, &written, nullptr);
  WriteFile(out, bits, size, &written, nullptr);
  CloseHandle(out);
  SelectObject(memory, former);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
}

}  // namespace imptable
