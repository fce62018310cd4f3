#include "platform/system/ProcessLauncher.h"
#include "platform/windows/WindowsError_win32.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

constexpr DWORD kSliceMilliseconds = 20;

struct Close {
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using KernelHandle = std::unique_ptr<void, Close>;

class WindowsProcessLauncher : public ProcessLauncher {
 public:
  std::error_code RunAndWait(const std::string& program, MessageLoop& loop) override {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    std::string command_line = '"' + program + '"';
    if (CreateProcessA(program.c_str(), command_line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       nullptr, &startup, &started) == 0) {
      return LastError();
    }
    const KernelHandle thread(started.hThread);
    const KernelHandle process(started.hProcess);
    // Wait in slices, and not for messages as well. The loop leaves some messages in the queue,
    // such as a request to quit; such a message would end every wait at once.
    while (WaitForSingleObject(process.get(), kSliceMilliseconds) == WAIT_TIMEOUT) loop.Yield();
    return {};
  }
};

}  // namespace

std::unique_ptr<ProcessLauncher> SystemProcessLauncher() {
  return std::make_unique<WindowsProcessLauncher>();
}

}  // namespace imptable
