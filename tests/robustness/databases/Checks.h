#ifndef TESTS_ROBUSTNESS_DATABASES_CHECKS_H_
#define TESTS_ROBUSTNESS_DATABASES_CHECKS_H_

#include "tests/robustness/databases/ColumnTypes.h"
#include "tests/robustness/databases/RandomValues.h"
#include "tests/robustness/databases/ValueTask.h"

namespace imptable {

/// What a run did against the rules; one sentence each.
using Findings = std::vector<std::string>;

struct CheckedRun {
  long lines = 0;
  long rejected = 0;
  Findings findings;
};

/// Lines with a key of their own and a random value: each is in the table or among the rejected
/// ones, and the counts are the table's.
CheckedRun CheckValues(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                       RandomValues& random);

/// Lines with a random key: only rows that a line names are changed, and each line that names one
/// in so many words changes it.
CheckedRun CheckKeys(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                     bool zero_dates, RandomValues& random);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DATABASES_CHECKS_H_
