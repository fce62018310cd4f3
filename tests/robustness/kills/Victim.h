#ifndef TESTS_ROBUSTNESS_KILLS_VICTIM_H_
#define TESTS_ROBUSTNESS_KILLS_VICTIM_H_

#include <chrono>
#include <cstdint>
#include <string>

#include "tests/scenarios/ChildProcess.h"

namespace imptable {

/// When a process gets its SIGKILL.
struct Kill {
  enum class At { kNever, kMoment, kCall, kBytes };
  At at = At::kNever;
  std::chrono::microseconds moment{0};  ///< after its start
  int call = 0;  ///< from 1: before it enters this one of the calls that the world can see
  std::uintmax_t bytes = 0;  ///< before the first such call once the watched file has this size
};

struct Fate {
  bool killed = false;   ///< false: it had ended before
  int code = -1;         ///< the exit code, if it ended by itself
  int calls = 0;         ///< seen; only where calls are counted
  int calls_before = 0;  ///< those before the watched file held something
  std::chrono::microseconds lasted{0};
  std::string said;  ///< on standard error
};

/// Runs a program until its end or its kill. A kill at a call comes before the system has done
/// anything of the call. The calls are those that change a file or a folder, flush it, talk to a
/// server, or end the process.
/// @param watched  the path of a file.
/// @throws std::runtime_error  when it can't be started or traced.
Fate RunVictim(const Invocation& invocation, const Kill& kill, const std::string& watched);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_VICTIM_H_
