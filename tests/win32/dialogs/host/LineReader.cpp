#include "tests/win32/dialogs/host/LineReader.h"

#include <sstream>
#include <thread>
#include <utility>

namespace imptable {

void LineReader::Start(HWND window, UINT message) {
  std::thread([=, this] {
    Read(window, message);
    PostThreadMessageW(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 0, 0);
  }).detach();
}

// Reads without the streams of the run-time library: the end of the process would wait for them.
void LineReader::Read(HWND window, UINT message) {
  std::string line;
  char next = 0;
  DWORD count = 0;
  while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &next, 1, &count, nullptr) != 0 && count == 1) {
    if (next != '\n') {
      line += next;
      continue;
    }
    {
      const std::lock_guard lock(mutex_);
      lines_.push_back(std::exchange(line, {}));
    }
    PostMessageW(window, message, 0, 0);
  }
}

std::vector<std::string> LineReader::Take() {
  const std::lock_guard lock(mutex_);
  std::istringstream text(lines_.front());
  lines_.pop_front();
  std::vector<std::string> words;
  for (std::string word; std::getline(text, word, '\t');) words.push_back(word);
  return words;
}

}  // namespace imptable
