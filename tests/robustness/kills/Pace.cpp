#include "tests/robustness/kills/Pace.h"

#include <algorithm>
#include <stdexcept>

namespace imptable {
namespace {

constexpr int kFew = 2;
constexpr int kMany = 22;
constexpr int kTries = 3;

constexpr double kAtMoments = 0.4;
constexpr double kAmidLines = 0.5;
constexpr double kOutsideLines = 0.25;
constexpr double kBeforeLines = 0.6;  // the part of a run without lines where lines would begin
constexpr double kBeyond = 1.05;

struct WholeRun {
  Fate counted;
  double microseconds = 0;
};

WholeRun WholeRunOf(KillTask& task, Random& random, int count) {
  const SourceLines source(random, task.work(), count, 0);
  WholeRun run;
  for (int at = 0; at < kTries; ++at) {
    task.Reset(source.table(), count);
    task.Source(Joined(source.texts()));
    const Fate fate = at == 0 ? task.CountCalls() : task.Run(false, {});
    if (fate.code > 1) throw std::runtime_error("a run of good lines fails: " + fate.said);
    const auto lasted = static_cast<double>(fate.lasted.count());
    if (at == 0) {
      run.counted = fate;
    } else {
      run.microseconds = at == 1 ? lasted : std::min(run.microseconds, lasted);
    }
  }
  return run;
}

}  // namespace

int Pace::Calls(std::size_t lines) const {
  return static_cast<int>(calls + calls_of_a_line * static_cast<double>(lines));
}

double Pace::Microseconds(std::size_t lines) const {
  return microseconds + microseconds_of_a_line * static_cast<double>(lines);
}

Pace PaceOf(KillTask& task, Random& random) {
  const WholeRun few = WholeRunOf(task, random, kFew);
  const WholeRun many = WholeRunOf(task, random, kMany);
  Pace pace;
  pace.calls_of_a_line = (many.counted.calls - few.counted.calls) / double{kMany - kFew};
  pace.calls_before_lines = few.counted.calls_before - pace.calls_of_a_line;
  pace.calls = few.counted.calls - kFew * pace.calls_of_a_line;
  pace.microseconds_of_a_line =
      std::max(0.0, (many.microseconds - few.microseconds) / (kMany - kFew));
  pace.microseconds = few.microseconds - kFew * pace.microseconds_of_a_line;
  return pace;
}

Kill AimAnywhere(const Pace& pace, std::size_t lines, Random& random) {
  std::uniform_real_distribution<double> share(0, 1);
  const bool amid = Chance(random, kAmidLines);
  if (Chance(random, kAtMoments)) {
    const double from = amid ? pace.Microseconds(0) * kBeforeLines : 0;
    const double to = pace.Microseconds(lines) * kBeyond;
    return {.at = Kill::At::kMoment,
            .moment = std::chrono::microseconds(
                static_cast<std::int64_t>(from + (to - from) * share(random)))};
  }
  const int outside = std::max(1, pace.Calls(0));
  const int whole = std::max(outside, pace.Calls(lines));
  int call = 0;
  if (amid) {
    const int before = static_cast<int>(pace.calls_before_lines);
    call = Between(random, before, whole - (outside - before));
  } else if (!Chance(random, kOutsideLines)) {
    call = Between(random, 1, static_cast<int>(whole * kBeyond));
  } else {
    call = Between(random, 1, outside);
    if (Chance(random, 0.5)) call = whole - call;
  }
  return {.at = Kill::At::kCall, .call = std::max(1, call)};
}

}  // namespace imptable
