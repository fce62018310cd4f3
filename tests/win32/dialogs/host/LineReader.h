#ifndef TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_
#define TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_

#include "platform/Windows_win32.h"

namespace imptable {

/// Posts each line of the standard input to a window of this thread, from now on: as the pointer of
/// that message, a std::vector<std::string> of its words, which tabs part; the window's own to
/// delete. The end of the input is a request to quit, with 0.
void ReadLines(HWND window, UINT message);

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_LINE_READER_H_
