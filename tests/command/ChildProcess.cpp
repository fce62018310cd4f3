#include "tests/command/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace imptable {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{60};

winsize SizeOf(int columns) {
  winsize size{};
  size.ws_row = 24;
  size.ws_col = static_cast<unsigned short>(columns);
  return size;
}

/// In the child: never returns.
[[noreturn]] void Become(const std::vector<std::string>& arguments,
                         const ChildProcess::Variables& variables) {
  for (const auto& [name, value] : variables) {
    if (value.empty()) {
      unsetenv(name.c_str());
    } else {
      setenv(name.c_str(), value.c_str(), 1);
    }
  }
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (const std::string& argument : arguments) {
    pointers.push_back(const_cast<char*>(argument.c_str()));
  }
  pointers.push_back(nullptr);
  execv(pointers.front(), pointers.data());
  _exit(127);
}

pid_t ForkOnPipe(int& reading_end) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return -1;
  const pid_t process = fork();
  if (process == 0) {
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    dup2(ends[1], STDERR_FILENO);
  } else {
    close(ends[1]);
    reading_end = ends[0];
  }
  return process;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, Output output,
                           const Variables& variables, int columns) {
  const winsize size = SizeOf(columns);
  process_ = output == Output::kTerminal ? forkpty(&descriptor_, nullptr, nullptr, &size)
                                         : ForkOnPipe(descriptor_);
  if (process_ < 0) throw std::runtime_error("can't start " + arguments.front());
  if (process_ == 0) Become(arguments, variables);
}

ChildProcess::~ChildProcess() {
  if (process_ > 0) {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  if (descriptor_ >= 0) close(descriptor_);
}

void ChildProcess::Resize(int columns) {
  const winsize size = SizeOf(columns);
  if (ioctl(descriptor_, TIOCSWINSZ, &size) != 0) throw std::runtime_error("can't resize");
}

void ChildProcess::Type(const std::string& text) {
  if (write(descriptor_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    throw std::runtime_error("can't type");
  }
}

bool ChildProcess::ReadSome() {
  std::array<char, 4096> bytes{};
  const ssize_t count = read(descriptor_, bytes.data(), bytes.size());
  if (count <= 0) return false;  // a terminal whose last user has gone gives EIO
  output_.append(bytes.data(), static_cast<std::size_t>(count));
  return true;
}

bool ChildProcess::ReadUntil(const std::function<bool(const std::string&)>& condition) {
  const SteadyClock::time_point end = SteadyClock::now() + kPatience;
  while (!condition(output_)) {
    if (SteadyClock::now() > end) return false;
    pollfd waiting{descriptor_, POLLIN, 0};
    if (poll(&waiting, 1, 1000) > 0 && !ReadSome()) return condition(output_);
  }
  return true;
}

int ChildProcess::Finish() {
  while (ReadSome()) {
  }
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace imptable
