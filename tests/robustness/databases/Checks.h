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

/// Imports lines with a key of their own and a random value. Each line must be in the table or
/// among the rejected ones, and the counts must be those of the table.
CheckedRun CheckValues(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                       RandomValues& random);

/// Imports lines with a random key. Only rows that a line may name are changed, and a line with
/// exactly a row's key changes that row.
CheckedRun CheckKeys(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                     bool zero_dates, RandomValues& random);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DATABASES_CHECKS_H_
