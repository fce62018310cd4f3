#include "tests/robustness/kills/Victim.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "tests/robustness/kills/CallFilter.h"

namespace imptable {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kNotStarted = 127;
constexpr std::chrono::seconds kLongest{60};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> EnvironmentTexts(const Environment& environment) {
  std::vector<std::string> texts;
  texts.reserve(environment.size() + 1);
  for (const auto& [name, value] : environment) {
    texts.emplace_back(name).append("=").append(value);
  }
  const char* const path = std::getenv("PATH");
  if (path != nullptr) texts.emplace_back("PATH=").append(path);
  return texts;
}

[[noreturn]] void Fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

std::uintmax_t BytesIn(const std::string& path) {
  std::error_code missing;
  const std::uintmax_t bytes = std::filesystem::file_size(path, missing);
  return missing ? 0 : bytes;
}

class Victim {
 public:
  Victim(const Invocation& invocation, bool traced) : said_(invocation.folder + "victim.err") {
    std::vector<std::string> words = invocation.words;
    std::vector<std::string> environment = EnvironmentTexts(invocation.environment);
    const std::vector<char*> word_pointers = Pointers(words);
    const std::vector<char*> environment_pointers = Pointers(environment);
    const std::vector<sock_filter> filter = CallFilter();
    pid_ = fork();
    if (pid_ < 0) Fail("fork");
    if (pid_ > 0) return;
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    const int said = open(said_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (dup2(nothing, STDIN_FILENO) < 0 || dup2(nothing, STDOUT_FILENO) < 0 ||
        dup2(said, STDERR_FILENO) < 0 || chdir(invocation.folder.c_str()) != 0) {
      _exit(kNotStarted);
    }
    if (traced && (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0 || !InstallFilter(filter))) {
      _exit(kNotStarted);
    }
    execve(word_pointers[0], word_pointers.data(), environment_pointers.data());
    _exit(kNotStarted);
  }
  ~Victim() {
    if (pid_ < 0) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, __WALL);
  }
  Victim(const Victim&) = delete;
  Victim& operator=(const Victim&) = delete;

  Fate KillAtMoment(std::chrono::microseconds moment) {
    const auto end = start_ + moment;
    while (Clock::now() < end && !Ended(WNOHANG)) usleep(50);
    if (pid_ >= 0) {
      kill(pid_, SIGKILL);
      while (!Ended(0)) {
      }
    }
    return Result();
  }

  Fate Wait() {
    const auto end = start_ + kLongest;
    while (!Ended(WNOHANG)) {
      if (Clock::now() > end) throw std::runtime_error("the command doesn't end");
      usleep(200);
    }
    return Result();
  }

  Fate KillAtCall(const Kill& plan, const std::string& watched) {
    int status = 0;
    if (waitpid(pid_, &status, __WALL) != pid_ || !WIFSTOPPED(status)) {
      pid_ = -1;
      throw std::runtime_error("the command can't be traced here");
    }
    constexpr int kOptions = PTRACE_O_EXITKILL | PTRACE_O_TRACESECCOMP | PTRACE_O_TRACECLONE |
                             PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK;
    if (ptrace(PTRACE_SETOPTIONS, pid_, nullptr, kOptions) != 0) Fail("ptrace");
    pid_t stopped = pid_;
    int signal = 0;
    while (pid_ >= 0) {
      ptrace(PTRACE_CONT, stopped, nullptr, signal);
      signal = 0;
      stopped = waitpid(-1, &status, __WALL);
      if (stopped < 0) Fail("waitpid");
      if (!WIFSTOPPED(status)) {
        if (stopped == pid_) Take(status);
      } else if (status >> 16 == PTRACE_EVENT_SECCOMP) {
        if (AtCall(plan, BytesIn(watched))) kill(pid_, SIGKILL);
      } else if (status >> 16 == 0 && WSTOPSIG(status) != SIGSTOP) {
        signal = WSTOPSIG(status);
      }
    }
    return Result();
  }

 private:
  /// @return whether the kill is to come before this call.
  bool AtCall(const Kill& plan, std::uintmax_t watched_bytes) {
    ++fate_.calls;
    if (watched_bytes == 0) fate_.calls_before = fate_.calls;
    if (plan.at == Kill::At::kCall) return fate_.calls == plan.call;
    const bool grown = was_smaller_ && watched_bytes >= plan.bytes;
    was_smaller_ = watched_bytes < plan.bytes;
    return grown;
  }

  bool Ended(int options) {
    int status = 0;
    if (waitpid(pid_, &status, options | __WALL) != pid_) return false;
    Take(status);
    return true;
  }

  void Take(int status) {
    pid_ = -1;
    fate_.lasted = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start_);
    fate_.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    if (WIFSIGNALED(status) && !fate_.killed) {
      throw std::runtime_error("the command died of signal " + std::to_string(WTERMSIG(status)));
    }
    if (WIFEXITED(status)) fate_.code = WEXITSTATUS(status);
    if (fate_.code == kNotStarted) throw std::runtime_error("the command can't be started");
  }

  Fate Result() {
    std::ifstream file(said_);
    fate_.said.assign(std::istreambuf_iterator<char>(file), {});
    return fate_;
  }

  std::string said_;
  pid_t pid_ = -1;
  Clock::time_point start_ = Clock::now();
  Fate fate_;
  bool was_smaller_ = false;  // the watched file, at the last call
};

}  // namespace

Fate RunVictim(const Invocation& invocation, const Kill& kill, const std::string& watched) {
  const bool traced = kill.at == Kill::At::kCall || kill.at == Kill::At::kBytes;
  Victim victim(invocation, traced);
  switch (kill.at) {
    case Kill::At::kNever:
      return victim.Wait();
    case Kill::At::kMoment:
      return victim.KillAtMoment(kill.moment);
    case Kill::At::kCall:
    case Kill::At::kBytes:
      return victim.KillAtCall(kill, watched);
  }
  throw std::invalid_argument("No such kill");
}

}  // namespace imptable
