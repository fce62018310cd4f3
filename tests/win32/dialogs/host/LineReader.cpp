#include "tests/win32/dialogs/host/LineReader.h"

#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace imptable {
namespace {

std::vector<std::string>* WordsOf(const std::string& line) {
  auto* const words = new std::vector<std::string>;
  std::istringstream text(line);
  for (std::string word; std::getline(text, word, '\t');) words->push_back(word);
  return words;
}

}  // namespace

void ReadLines(HWND window, UINT message) {
  const DWORD reader = GetCurrentThreadId();
  // Not by the run-time library, whose streams the end of the process would wait for.
  std::thread([=] {
    std::string line;
    char next = 0;
    DWORD count = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &next, 1, &count, nullptr) != 0 && count == 1) {
      if (next == '\n') {
        PostMessageW(window, message, 0,
                     reinterpret_cast<LPARAM>(WordsOf(std::exchange(line, {}))));
      } else {
        line += next;
      }
    }
    PostThreadMessageW(reader, WM_QUIT, 0, 0);
  }).detach();
}

}  // namespace imptable
