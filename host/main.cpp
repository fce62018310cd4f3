#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/RunHost.h"

namespace {

class StandardOutputTerminal : public imptable::Terminal {
 public:
  int Columns() const override {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
  }
};

std::string_view Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// Blots out the values of NAME=VALUE arguments, which every user of this machine can read as long
/// as the process lives.
void HideValues(int argc, char** argv) {
  for (int index = 1; index < argc; ++index) {
    char* const value = std::strchr(argv[index], '=');
    if (argv[index][0] != '-' && value != nullptr)
      std::memset(value + 1, '*', std::strlen(value + 1));
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  // At the limit for the size of a file, a write fails as on a full disk. The signal would end the
  // process.
  std::signal(SIGXFSZ, SIG_IGN);
  const StandardOutputTerminal terminal;
  const bool is_terminal = isatty(STDOUT_FILENO) == 1 && Environment("TERM") != "dumb";
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  HideValues(argc, argv);
  return imptable::RunHost(arguments, {.in = std::cin,
                                       .out = std::cout,
                                       .err = std::cerr,
                                       .terminal = is_terminal ? &terminal : nullptr,
                                       .colours = is_terminal && Environment("NO_COLOR").empty(),
                                       .asks = isatty(STDIN_FILENO) == 1,
                                       .ends_the_process = true});
}
