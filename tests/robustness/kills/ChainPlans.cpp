#include "tests/robustness/kills/ChainPlans.h"

#include <utility>

namespace imptable {
namespace {

constexpr int kResumes = 5;
constexpr std::size_t kTraceLineBytes = 18;

constexpr double kKilled = 0.85;
constexpr double kLimited = 0.4;
constexpr double kAfterAnother = 0.2;
constexpr double kTableMissing = 0.05;
constexpr double kRegistryFails = 0.1;
constexpr double kToTheEnd = 0.6;

std::vector<Attempt> RandomAttempts(const Pace& pace, Random& random, int count, int limit) {
  std::vector<Attempt> attempts;
  for (int at = 0; at < count; ++at) {
    Attempt attempt{.mended = Chance(random, 0.3) ? 0.0 : 0.1 * Between(random, 1, 10),
                    .badly = 0.1 * Between(random, 0, 4),
                    .error_limit = limit,
                    .table_missing = Chance(random, kTableMissing),
                    .registry_fails = Chance(random, kRegistryFails)};
    if (Chance(random, kKilled)) {
      attempt.kill = [&pace, &random](std::size_t lines) {
        return AimAnywhere(pace, lines, random);
      };
    }
    attempts.push_back(std::move(attempt));
  }
  return attempts;
}

/// Seven lines, by default a third of them bad. The stage's own attempts come first, then two that
/// mend.
ChainPlan SmallPlan(std::vector<Attempt> attempts, double bad_share = 0.35) {
  attempts.push_back({.mended = 0.5});
  attempts.push_back({.mended = 1});
  return {.lines = 7, .bad_share = bad_share, .before = {}, .attempts = std::move(attempts)};
}

}  // namespace

ChainPlan RandomPlan(const Pace& pace, Random& random) {
  ChainPlan plan;
  plan.lines = Between(random, 1, 40);
  plan.bad_share = Chance(random, 0.2) ? 0 : 0.05 * Between(random, 1, 9);
  const int limit = Chance(random, kLimited) ? Between(random, 0, 4) : kNoLimit;
  if (Chance(random, kAfterAnother)) {
    plan.before = RandomAttempts(pace, random, Between(random, 1, 2), kNoLimit);
  }
  plan.attempts = RandomAttempts(pace, random, kResumes, limit);
  Attempt last{.mended = 0.5, .error_limit = limit};
  if (Chance(random, kToTheEnd)) last = {.mended = 1};
  plan.attempts.push_back(last);
  return plan;
}

std::vector<Stage> Stages() {
  const auto amid = [](std::size_t lines) {
    return Kill{.at = Kill::At::kBytes, .bytes = kTraceLineBytes * ((lines + 1) / 2)};
  };
  ChainPlan after_another = SmallPlan({{}});
  after_another.before = {{}, {.kill = amid, .mended = 0.5}};
  return {
      {"first run", SmallPlan({{}}), 0},
      {"first run of good lines", SmallPlan({{}}, 0), 0},
      {"first run that stops at the error limit", SmallPlan({{.error_limit = 0}}), 0},
      {"first run whose status can't be stored", SmallPlan({{.registry_fails = true}}), 0},
      {"first run of good lines whose status can't be stored",
       SmallPlan({{.registry_fails = true}}, 0), 0},
      {"resume whose status can't be stored",
       SmallPlan({{}, {.mended = 1, .registry_fails = true}}), 1},
      {"resume", SmallPlan({{}, {.mended = 0.5, .badly = 0.3}}), 1},
      {"resume to the end", SmallPlan({{}, {.mended = 1}}), 1},
      {"resume that comes to no line",
       SmallPlan({{}, {.kill = amid, .mended = 0.5, .badly = 1}, {.table_missing = true}}),
       2,
       {1}},
      {"resume of a killed run",
       SmallPlan({{.kill = amid}, {.mended = 0.5, .badly = 0.5}}),
       1,
       {0}},
      {"resume of a killed resume",
       SmallPlan({{}, {.kill = amid, .mended = 0.5, .badly = 1}, {.mended = 0.5, .badly = 0.5}}),
       2,
       {1}},
      {"first run in the place of another chain", after_another, 0},
  };
}

ChainPlan PlanAt(const Stage& stage, int call) {
  ChainPlan plan = stage.plan;
  plan.attempts[stage.killed].kill = [call](std::size_t) {
    return Kill{.at = Kill::At::kCall, .call = call};
  };
  return plan;
}

}  // namespace imptable
