#ifndef TESTS_COMMAND_CHILD_PROCESS_H_
#define TESTS_COMMAND_CHILD_PROCESS_H_

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace imptable {

/// A process that a test starts and reads from. Killed and reaped with its object.
class ChildProcess {
 public:
  using Variables = std::vector<std::pair<std::string, std::string>>;

  /// Where standard output and standard error go; standard input is the terminal or /dev/null.
  enum class Output { kTerminal, kPipe };

  /// @param arguments  the program's path first.
  /// @param variables  set in the environment besides this process's own; an empty text unsets.
  /// @param columns  width of the terminal.
  /// @throws std::runtime_error when it can't be started.
  ChildProcess(const std::vector<std::string>& arguments, Output output,
               const Variables& variables = {}, int columns = 80);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t id() const { return process_; }

  /// Tells the process that its terminal has another width now.
  void Resize(int columns);

  /// As if typed at the terminal.
  void Type(const std::string& text);

  /// Reads on until the condition holds for all that was printed so far.
  /// @return false when the output ended, or a minute passed, before it did.
  bool ReadUntil(const std::function<bool(const std::string&)>& condition);

  /// Reads the rest. @return the exit code; -1 when the process was killed.
  int Finish();

  const std::string& output() const { return output_; }

 private:
  bool ReadSome();

  pid_t process_ = -1;
  int descriptor_ = -1;
  std::string output_;
};

}  // namespace imptable

#endif  // TESTS_COMMAND_CHILD_PROCESS_H_
