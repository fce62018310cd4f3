// Stands in for the system's ODBC administrator: makes the data source "Added" while its window is
// shown for a moment.

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "platform/Windows_win32.h"

int main() {
  const HWND window =
      CreateWindowExW(0, L"STATIC", L"Administrator", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 500, 300,
                      100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  const char* const sources = std::getenv("ODBCINI");
  if (sources == nullptr || window == nullptr) return 1;
  std::ofstream file(std::string("Z:") + sources, std::ios::app);
  file << "[Added]\nDriver=none\n" << std::flush;
  return file ? 0 : 1;
}
