#include "bench/ChildProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>

namespace imptable {

ChildResult RunChild(const std::vector<std::string>& command) {
  std::array<int, 2> pipe_ends{};
  if (pipe2(pipe_ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe");
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("fork");
  if (child == 0) {
    dup2(pipe_ends[1], STDOUT_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }
  close(pipe_ends[1]);
  ChildResult result;
  std::array<char, 4096> block{};
  for (ssize_t got = 0; (got = read(pipe_ends[0], block.data(), block.size())) > 0;) {
    result.output.append(block.data(), static_cast<std::size_t>(got));
  }
  close(pipe_ends[0]);
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) throw std::runtime_error("wait4");
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.peak_mib = static_cast<double>(usage.ru_maxrss) / 1024;
  if (result.exit_code == 127) throw std::runtime_error("can't start " + command[0]);
  return result;
}

ChildResult RunChecked(const std::vector<std::string>& command) {
  ChildResult result = RunChild(command);
  if (result.exit_code != 0) {
    throw std::runtime_error(command[0] + " ended with " + std::to_string(result.exit_code));
  }
  return result;
}

}  // namespace imptable
