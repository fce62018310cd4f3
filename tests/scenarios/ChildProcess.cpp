#include "tests/scenarios/ChildProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace imptable {
namespace {

constexpr int kNotStarted = 127;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> EnvironmentTexts(Environment environment) {
  for (const char* const name : {"PATH", "HOME"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr) environment.emplace(name, value);
  }
  std::vector<std::string> texts;
  texts.reserve(environment.size());
  for (const auto& [name, value] : environment) {
    texts.emplace_back(name).append("=").append(value);
  }
  return texts;
}

void Redirect(const std::string& path, int flags, int number) {
  const int file = open(path.c_str(), flags | O_CLOEXEC, 0600);
  if (file < 0 || dup2(file, number) < 0) _exit(kNotStarted);
}

}  // namespace

ChildProcess::ChildProcess(const Invocation& invocation) {
  const std::string input = folder_.Write("in", invocation.input);
  const std::string out = folder_.Write("out", "");
  const std::string err = folder_.Write("err", "");
  std::vector<std::string> words = invocation.words;
  std::vector<std::string> environment = EnvironmentTexts(invocation.environment);
  const std::vector<char*> word_pointers = Pointers(words);
  const std::vector<char*> environment_pointers = Pointers(environment);
  pid_ = fork();
  if (pid_ < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (pid_ > 0) return;
  Redirect(input, O_RDONLY, STDIN_FILENO);
  Redirect(out, O_WRONLY, STDOUT_FILENO);
  Redirect(err, O_WRONLY, STDERR_FILENO);
  // Whoever runs the tests may ignore these signals, and a program would inherit that.
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
  std::signal(SIGHUP, SIG_DFL);
  std::signal(SIGXFSZ, SIG_DFL);
  if (!invocation.folder.empty() && chdir(invocation.folder.c_str()) != 0) _exit(kNotStarted);
  for (const auto& [resource, most] : invocation.limits) {
    const rlimit limit{most, most};
    if (setrlimit(static_cast<__rlimit_resource>(resource), &limit) != 0) _exit(kNotStarted);
  }
  execvpe(word_pointers[0], word_pointers.data(), environment_pointers.data());
  _exit(kNotStarted);
}

ChildProcess::~ChildProcess() {
  if (!Running()) return;
  Signal(SIGKILL);
  waitpid(pid_, nullptr, 0);
}

bool ChildProcess::Running() {
  if (pid_ < 0) return false;
  int status = 0;
  if (waitpid(pid_, &status, WNOHANG) != pid_) return true;
  pid_ = -1;
  code_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return false;
}

void ChildProcess::Signal(int number) const {
  if (pid_ > 0) kill(pid_, number);
}

Ending ChildProcess::Wait(std::chrono::seconds most) {
  const auto end = std::chrono::steady_clock::now() + most;
  bool killed = false;
  while (Running()) {
    if (!killed && std::chrono::steady_clock::now() > end) {
      killed = true;
      Signal(SIGKILL);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  Ending ending{code_, folder_.Read("out"), folder_.Read("err")};
  if (killed) ending.err += "(killed: it took longer than the test allows)\n";
  return ending;
}

std::string OutputOf(const Invocation& invocation) {
  const Ending ending = Finish(invocation);
  if (ending.code == 0) return ending.out;
  throw std::runtime_error(invocation.words.front() + " ended with " + std::to_string(ending.code) +
                           ": " + ending.err + ending.out);
}

}  // namespace imptable
