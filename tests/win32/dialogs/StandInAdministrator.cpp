// Stands in for the system's ODBC administrator: when somebody closes its window, it makes the data
// source "Added".

#include <cstdlib>
#include <fstream>
#include <string>

#include "platform/windows/Windows_win32.h"

namespace {

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM pointer) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, word, pointer);
}

}  // namespace

int main() {
  WNDCLASSW description{};
  description.lpfnWndProc = &OnMessage;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = L"StandInAdministrator";
  RegisterClassW(&description);
  const HWND window = CreateWindowExW(0, description.lpszClassName, L"Administrator",
                                      WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 500, 300, 100, nullptr,
                                      nullptr, description.hInstance, nullptr);
  if (window == nullptr) return 1;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  const char* const sources = std::getenv("ODBCINI");
  if (sources == nullptr) return 1;
  std::ofstream file(std::string("Z:") + sources, std::ios::app);
  file << "[Added]\nDriver=none\n" << std::flush;
  return file ? 0 : 1;
}
