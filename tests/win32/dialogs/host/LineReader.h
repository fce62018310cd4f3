#ifndef TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_
#define TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_

#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// The lines of the standard input; lives as long as the process.
class LineReader {
 public:
  /// Posts a message to a window of this thread for each line, from now on. The end of the input is
  /// a request to quit, with 0.
  void Start(HWND window, UINT message);

  /// The words of the next line that a message has told of. Tabs part them.
  std::vector<std::string> Take();

 private:
  void Read(HWND window, UINT message);

  std::mutex mutex_;
  std::deque<std::string> lines_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_
