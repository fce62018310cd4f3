#ifndef TESTS_ROBUSTNESS_DATABASES_VALUE_TASK_H_
#define TESTS_ROBUSTNESS_DATABASES_VALUE_TASK_H_

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/scenarios/Workplace.h"

namespace imptable {

/// Values of "Mode": never change.
enum class ImportMode { kInsert = 0, kUpdate = 1, kUpdateInsert = 3, kDelete = 4 };

std::string_view NameOf(ImportMode mode);

/// What one run left, as the command and its files have it.
struct RunResult {
  int code = 0;
  std::string error_line;
  std::map<std::string, long> counts;  // of the JSON: read, inserted...
  std::vector<std::string> rejected;   // the lines of ".LER"
  long Count(const std::string& name) const { return counts.at(name); }
};

/// Tasks of every mode into a table t. Those with the key "id" read lines id;v;m. Those with the
/// key "v" read lines v;m, and the rows keep their id.
class ValueTask : public Workplace {
 public:
  /// @param options  more lines of the data source.
  ValueTask(DatabaseKind kind, const std::string& options);

  RunResult Run(ImportMode mode, bool by_value, const std::vector<std::string>& lines) const;

  /// The numbers that a query gives: Numbers those of its one column, Pairs those of its second
  /// column by those of its first.
  std::set<long> Numbers(const std::string& query) const;
  std::map<long, long> Pairs(const std::string& query) const;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DATABASES_VALUE_TASK_H_
