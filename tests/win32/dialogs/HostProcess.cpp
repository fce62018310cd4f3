#include "tests/win32/dialogs/HostProcess.h"

#include <array>
#include <stdexcept>
#include <utility>

#include "tests/win32/component/ComponentDll.h"
#include "tests/win32/dialogs/Waiting.h"

namespace imptable {
namespace {

constexpr DWORD kEndTime = 30000;  // milliseconds

/// The two ends of a pipe. One of them is handed down.
struct Pipe {
  HANDLE read = nullptr;
  HANDLE write = nullptr;

  Pipe() {
    SECURITY_ATTRIBUTES handed_down{sizeof handed_down, nullptr, TRUE};
    if (CreatePipe(&read, &write, &handed_down, 0) == 0) throw std::runtime_error("no pipe");
  }
};

}  // namespace

HostProcess::HostProcess() {
  Pipe in;
  Pipe out;
  SetHandleInformation(in.write, HANDLE_FLAG_INHERIT, 0);
  SetHandleInformation(out.read, HANDLE_FLAG_INHERIT, 0);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.read;
  startup.hStdOutput = out.write;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  std::wstring command = L'"' + ComponentDll::Folder() + L"PlainHost.exe\"";
  const BOOL is_started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0,
                                         nullptr, nullptr, &startup, &process_);
  CloseHandle(in.read);
  CloseHandle(out.write);
  input_ = in.write;
  output_ = out.read;
  if (is_started == 0) throw std::runtime_error("PlainHost.exe can't be started");
  const std::string line = Answer();
  window_ = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(std::stoul(line.substr(7))));
}

HostProcess::~HostProcess() {
  constexpr DWORD kQuitTime = 5000;
  CloseHandle(input_);
  if (WaitForSingleObject(process_.hProcess, kQuitTime) != WAIT_OBJECT_0) {
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, kEndTime);
  }
  for (const HANDLE handle : {process_.hProcess, process_.hThread, output_}) {
    CloseHandle(handle);
  }
}

void HostProcess::Tell(const std::string& line) const {
  const std::string text = line + '\n';
  DWORD written = 0;
  WriteFile(input_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

std::optional<std::string> HostProcess::NextLine() {
  DWORD waiting = 0;
  if (PeekNamedPipe(output_, nullptr, 0, nullptr, &waiting, nullptr) == 0) {
    throw std::runtime_error("the host has ended");
  }
  if (waiting > 0) {
    std::array<char, 256> text{};
    DWORD count = 0;
    ReadFile(output_, text.data(), static_cast<DWORD>(text.size()), &count, nullptr);
    unread_.append(text.data(), count);
  }
  const std::size_t end = unread_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string line = unread_.substr(0, end);
  unread_.erase(0, end + 1);
  return line;
}

std::string HostProcess::Answer() {
  return *WaitFor([this] { return NextLine(); }, "an answer of the host");
}

DWORD HostProcess::WaitForEnd() const {
  if (WaitForSingleObject(process_.hProcess, kEndTime) != WAIT_OBJECT_0) {
    throw std::runtime_error("the host doesn't end");
  }
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

}  // namespace imptable
