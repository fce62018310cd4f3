#ifndef BENCH_CHILD_PROCESS_H_
#define BENCH_CHILD_PROCESS_H_

#include <string>
#include <vector>

namespace imptable {

struct ChildResult {
  int exit_code = 0;
  double seconds = 0;   // wall time from start to end
  double peak_mib = 0;  // largest resident set
  std::string output;   // standard output
};

/// Runs a program to its end. @throws std::runtime_error when it can't be started.
ChildResult RunChild(const std::vector<std::string>& command);

/// The same; also throws when the exit code isn't 0.
ChildResult RunChecked(const std::vector<std::string>& command);

}  // namespace imptable

#endif  // BENCH_CHILD_PROCESS_H_
