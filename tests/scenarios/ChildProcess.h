#ifndef TESTS_SCENARIOS_CHILDPROCESS_H_
#define TESTS_SCENARIOS_CHILDPROCESS_H_

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/testing/TemporaryFolder.h"

namespace imptable {

using Environment = std::map<std::string, std::string>;

/// A program, what it is told and what surrounds it.
struct Invocation {
  std::vector<std::string> words;            ///< the program first, looked up in PATH
  Environment environment = {};              ///< besides PATH and HOME; nothing else is handed on
  std::string folder = {};                   ///< it starts there; empty: here
  std::string input = {};                    ///< its standard input
  std::map<int, std::uint64_t> limits = {};  ///< on its resources, by RLIMIT_...
};

struct Ending {
  int code = -1;  ///< of a program that a signal ended: 128 + the signal
  std::string out;
  std::string err;
};

/// Sole owner of a running program, which is killed if it still runs when its owner goes.
class ChildProcess {
 public:
  explicit ChildProcess(const Invocation& invocation);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool Running();
  void Signal(int number) const;
  /// Kills a program that isn't done by then, and says so at the end of its errors.
  Ending Wait(std::chrono::seconds most = std::chrono::seconds(60));

 private:
  TemporaryFolder folder_;
  pid_t pid_ = -1;
  int code_ = -1;
};

inline Ending Finish(const Invocation& invocation) { return ChildProcess(invocation).Wait(); }

/// @throws std::runtime_error  with what the program said, when it fails.
std::string OutputOf(const Invocation& invocation);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_CHILDPROCESS_H_
