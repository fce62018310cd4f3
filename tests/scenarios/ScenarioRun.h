#ifndef TESTS_SCENARIOS_SCENARIORUN_H_
#define TESTS_SCENARIOS_SCENARIORUN_H_

#include "tests/scenarios/ResultFiles.h"
#include "tests/scenarios/Scenario.h"

namespace imptable {

/// Carries a scenario out on one database, checking every exit code, status and error line on the
/// way.
/// @return all that it left, without what differs from run to run.
ResultFiles PerformScenario(const Scenario& scenario, DatabaseKind kind);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_SCENARIORUN_H_
