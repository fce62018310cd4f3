#ifndef TESTS_WIN32_DIALOGS_HOST_WINDOW_CLASSES_H_
#define TESTS_WIN32_DIALOGS_HOST_WINDOW_CLASSES_H_

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// How many of a module's window classes have a procedure within it.
inline int WindowClassesOf(HMODULE module) {
  constexpr ULONG_PTR kFirst = 0xC000;  // atoms that have names
  constexpr ULONG_PTR kLast = 0xFFFF;
  int count = 0;
  for (ULONG_PTR atom = kFirst; atom <= kLast; ++atom) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    if (GetClassInfoExW(module, reinterpret_cast<LPCWSTR>(atom), &description) == 0) continue;
    HMODULE owner = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(description.lpfnWndProc), &owner);
    if (owner == module) ++count;
  }
  return count;
}

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_WINDOW_CLASSES_H_
