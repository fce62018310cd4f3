#ifndef TESTS_ROBUSTNESS_KILLS_CHAINPLANS_H_
#define TESTS_ROBUSTNESS_KILLS_CHAINPLANS_H_

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "tests/robustness/kills/Chain.h"
#include "tests/robustness/kills/Pace.h"

namespace imptable {

/// Up to five resumes, all but the last of which may be killed anywhere.
/// @param pace, random  borrowed for the plan's life.
ChainPlan RandomPlan(const Pace& pace, Random& random);

/// A part of a chain's life in which a kill is tried at every call.
struct Stage {
  std::string name;
  ChainPlan plan;
  std::size_t killed;  ///< the attempt that is killed at each of its calls in turn
  std::set<std::size_t> killed_before = {};  ///< attempts that are killed amid their lines
};

std::vector<Stage> Stages();

/// The stage's plan with its kill at that call.
ChainPlan PlanAt(const Stage& stage, int call);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_CHAINPLANS_H_
