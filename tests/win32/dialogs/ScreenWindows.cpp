#include "tests/win32/dialogs/ScreenWindows.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace imptable {
namespace {

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  if (IsWindowVisible(window) != FALSE) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

/// A rectangle in another process's memory, for messages that hand on pointers unchanged.
class RemoteRectangle {
 public:
  explicit RemoteRectangle(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    place_ = VirtualAllocEx(process_, nullptr, sizeof(RECT), MEM_COMMIT, PAGE_READWRITE);
    if (place_ == nullptr) throw std::runtime_error("no memory in another process");
  }
  RemoteRectangle(const RemoteRectangle&) = delete;
  RemoteRectangle& operator=(const RemoteRectangle&) = delete;
  ~RemoteRectangle() {
    VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }

  LPARAM pointer() const { return reinterpret_cast<LPARAM>(place_); }

  RECT Read() const {
    RECT rectangle{};
    ReadProcessMemory(process_, place_, &rectangle, sizeof rectangle, nullptr);
    return rectangle;
  }

 private:
  HANDLE process_;
  void* place_;
};

}  // namespace

LRESULT AskWindow(HWND window, UINT message, WPARAM word, LPARAM pointer) {
  constexpr UINT kAnswerTime = 20000;  // milliseconds
  DWORD_PTR answer = 0;
  if (SendMessageTimeoutW(window, message, word, pointer, SMTO_NORMAL, kAnswerTime, &answer) == 0) {
    throw std::runtime_error("a window doesn't answer");
  }
  return static_cast<LRESULT>(answer);
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(AskWindow(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT length =
      AskWindow(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
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

POINT MiddleOf(HWND window) {
  const RECT place = PlaceOf(window);
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

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
    if (ClassOf(each) != kind) continue;
    std::wstring text = TextOf(each);
    std::erase(text, L'&');
    text.erase(text.find_last_not_of(L' ') + 1);
    if (text == caption) return each;
  }
  return nullptr;
}

HWND FieldOf(HWND parent, std::wstring_view label) {
  HWND text = FindIn(parent, L"Static", label);
  if (text == nullptr) text = FindIn(parent, L"Button", label);
  if (text == nullptr) return nullptr;
  const LONG line = MiddleOf(text).y;
  HWND nearest = nullptr;
  for (const HWND each : WindowsIn(parent)) {
    const RECT place = PlaceOf(each);
    if (ClassOf(each) != L"Edit" || place.left < PlaceOf(text).right || place.top > line ||
        place.bottom < line) {
      continue;
    }
    if (nearest == nullptr || place.left < PlaceOf(nearest).left) nearest = each;
  }
  return nearest;
}

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

POINT PlaceOfTab(HWND tabs, int tab) {
  const RemoteRectangle rectangle(tabs);
  AskWindow(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), rectangle.pointer());
  const RECT place = rectangle.Read();
  POINT point{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  ClientToScreen(tabs, &point);
  return point;
}

}  // namespace imptable
