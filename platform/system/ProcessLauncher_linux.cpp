#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/system/ProcessLauncher.h"

namespace imptable {
namespace {

constexpr std::chrono::milliseconds kSlice{20};

class LinuxProcessLauncher : public ProcessLauncher {
 public:
  std::error_code RunAndWait(const std::string& program, MessageLoop& loop) override {
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    const int error = posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ);
    if (error != 0) return {error, std::generic_category()};
    // A child that can't be waited for is gone.
    while (waitpid(child, nullptr, WNOHANG) == 0) {
      loop.Yield();
      std::this_thread::sleep_for(kSlice);
    }
    return {};
  }
};

}  // namespace

std::unique_ptr<ProcessLauncher> SystemProcessLauncher() {
  return std::make_unique<LinuxProcessLauncher>();
}

}  // namespace imptable
