#ifndef TESTS_WIN32_DIALOGS_HOST_PROCESS_H_
#define TESTS_WIN32_DIALOGS_HOST_PROCESS_H_

#include <optional>
#include <string>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// PlainHost.exe, which lies beside this program, while it runs.
class HostProcess {
 public:
  /// Waits for its window. @throws std::runtime_error  as do the others, when it takes too long.
  HostProcess();
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;

  /// Asks it to quit, and ends it when it doesn't.
  ~HostProcess();

  HWND window() const { return window_; }
  DWORD id() const { return process_.dwProcessId; }

  /// Has it do something (words are parted by tabs), and doesn't wait.
  void Tell(const std::string& line) const;

  /// Waits for its next line.
  std::string Answer();

  std::string Ask(const std::string& line) {
    Tell(line);
    return Answer();
  }

  /// Waits until it ends by itself. @return its exit code.
  DWORD WaitForEnd() const;

 private:
  std::optional<std::string> NextLine();

  PROCESS_INFORMATION process_{};
  HANDLE input_ = nullptr;   // of the host
  HANDLE output_ = nullptr;  // of the host
  HWND window_ = nullptr;
  std::string unread_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_PROCESS_H_
