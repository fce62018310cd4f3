#ifndef TESTS_ROBUSTNESS_KILLS_PACE_H_
#define TESTS_ROBUSTNESS_KILLS_PACE_H_

#include <cstddef>

#include "tests/robustness/kills/KillTask.h"
#include "tests/robustness/kills/SourceLines.h"

namespace imptable {

/// How long a whole run of a task takes and how many calls it makes, by the number of its lines.
/// Kills are aimed with it.
struct Pace {
  double calls = 0;
  double calls_before_lines = 0;
  double calls_of_a_line = 0;
  double microseconds = 0;
  double microseconds_of_a_line = 0;

  int Calls(std::size_t lines) const;
  double Microseconds(std::size_t lines) const;
};

/// Runs the task a few times.
Pace PaceOf(KillTask& task, Random& random);

/// A kill anywhere in a run of so many lines, from its start to a little beyond its end.
Kill AimAnywhere(const Pace& pace, std::size_t lines, Random& random);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_PACE_H_
