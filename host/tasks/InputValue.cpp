#include "host/tasks/InputValue.h"

#include <termios.h>
#include <unistd.h>

#include <optional>

#include "host/HostError.h"

namespace imptable {
namespace {

constexpr char kCtrlC = '\x03';

/// Keeps the terminal from showing what is typed. Ctrl-C ends the line, not the process: so the
/// terminal is always set back.
class SilentTyping {
 public:
  SilentTyping() {
    if (tcgetattr(STDIN_FILENO, &former_) != 0) return;
    termios silent = former_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    silent.c_cc[VEOL] = kCtrlC;
    silenced_ = tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent) == 0;
  }
  ~SilentTyping() {
    if (silenced_) tcsetattr(STDIN_FILENO, TCSANOW, &former_);
  }
  SilentTyping(const SilentTyping&) = delete;
  SilentTyping& operator=(const SilentTyping&) = delete;

 private:
  termios former_{};
  bool silenced_ = false;
};

/// @return nullopt at the end of the input.
std::optional<std::string> ReadLine(std::istream& in, bool typed) {
  std::string line;
  char byte = 0;
  while (in.get(byte) && byte != '\n') {
    if (typed && byte == kCtrlC) {
      throw HostError(ExitCode::kInterrupted, HostText::kInputInterrupted);
    }
    line += byte;
  }
  if (!in && line.empty()) return std::nullopt;
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::optional<std::string> AskForLine(const HostConsole& console, const std::string& question) {
  const SilentTyping silence;  // before the question, or a quick answer would be shown
  console.err << WithoutControls(question) << std::flush;
  std::optional<std::string> line = ReadLine(console.in, true);
  console.err << '\n' << std::flush;
  return line;
}

}  // namespace

std::string ReadInputValue(const HostConsole& console, const HostTexts& texts,
                           const std::string& name) {
  const std::optional<std::string> line =
      console.asks ? AskForLine(console, texts.Text(HostText::kAskForValue, {name}))
                   : ReadLine(console.in, false);
  if (!line) throw HostError(ExitCode::kUsage, HostText::kNoInputValue, {name});
  return *line;
}

}  // namespace imptable
