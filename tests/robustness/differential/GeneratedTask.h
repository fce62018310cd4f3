#ifndef TESTS_ROBUSTNESS_DIFFERENTIAL_GENERATED_TASK_H_
#define TESTS_ROBUSTNESS_DIFFERENTIAL_GENERATED_TASK_H_

#include <string>

#include "tests/opinions/Draws.h"
#include "tests/robustness/differential/RuleModel.h"

namespace imptable {

/// A task at random, and lines that it may meet: mostly well-formed ones, with faults in them.
rules::Task GeneratedTask(Draws& draws);
std::string GeneratedLine(const rules::Task& task, Draws& draws);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DIFFERENTIAL_GENERATED_TASK_H_
