#ifndef TESTS_SCENARIOS_COMMANDUNDERTEST_H_
#define TESTS_SCENARIOS_COMMANDUNDERTEST_H_

#include <string>

#include "tests/scenarios/ChildProcess.h"

namespace imptable {

/// The command that the tests run, and the ways of its system. It is $IMPTABLE_COMMAND, else the
/// one just built. With "windows" as $IMPTABLE_COMMAND_SYSTEM, the command stands for the Windows
/// component (tests/win32/imptable).
class CommandUnderTest {
 public:
  CommandUnderTest(std::string path, bool is_windows);

  const std::string& path() const { return path_; }
  bool is_windows() const { return is_windows_; }

  /// What it needs of this process's environment besides PATH and HOME.
  Environment Surroundings() const;

  /// A path of this system as the command's system spells it.
  std::string Spelt(std::string path) const;

  std::string SqliteDriver() const;

 private:
  std::string path_;
  bool is_windows_;
};

const CommandUnderTest& TheCommand();

}  // namespace imptable

#endif  // TESTS_SCENARIOS_COMMANDUNDERTEST_H_
