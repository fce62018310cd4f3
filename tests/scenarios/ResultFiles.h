#ifndef TESTS_SCENARIOS_RESULTFILES_H_
#define TESTS_SCENARIOS_RESULTFILES_H_

#include <map>
#include <string>

#include "tests/scenarios/Scenario.h"

namespace imptable {

/// The files' names below `expected/`, and their texts.
using ResultFiles = std::map<std::string, std::string>;

/// What the scenario expects of this database.
ResultFiles ReadExpected(const Scenario& scenario, DatabaseKind kind);

/// One failure for each file that is missing, additional or other than expected.
void Compare(const ResultFiles& expected, const ResultFiles& found);

/// Writes `found` in place of what was expected. The scenario's first database writes `expected/`,
/// each other one `expected.DATABASE/` with what differs.
void Record(const Scenario& scenario, DatabaseKind kind, const ResultFiles& found);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_RESULTFILES_H_
