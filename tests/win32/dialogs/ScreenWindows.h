#ifndef TESTS_WIN32_DIALOGS_SCREEN_WINDOWS_H_
#define TESTS_WIN32_DIALOGS_SCREEN_WINDOWS_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/Windows_win32.h"

// Windows of any process, as whoever looks at the screen sees them.

namespace imptable {

/// Sends a message. @throws std::runtime_error  when no answer comes.
LRESULT AskWindow(HWND window, UINT message, WPARAM word = 0, LPARAM pointer = 0);

/// Caption or text of a window.
std::wstring TextOf(HWND window);

std::wstring ClassOf(HWND window);
RECT PlaceOf(HWND window);
POINT MiddleOf(HWND window);

/// All visible windows inside another one, at any depth.
std::vector<HWND> WindowsIn(HWND parent);

/// The first visible one of a class; null when there is none.
HWND FindIn(HWND parent, std::wstring_view kind);

/// The same with this caption. Marks of access keys and blanks at its end don't count.
HWND FindIn(HWND parent, std::wstring_view kind, std::wstring_view caption);

/// The field right of a label or option, on its line.
HWND FieldOf(HWND parent, std::wstring_view label);

/// The cells of grids, from left to right; headers are windows of their own.
std::vector<HWND> GridsIn(HWND parent);

/// Where a tab is on the screen.
POINT PlaceOfTab(HWND tabs, int tab);

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SCREEN_WINDOWS_H_
