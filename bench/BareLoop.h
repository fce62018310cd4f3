#ifndef BENCH_BARE_LOOP_H_
#define BENCH_BARE_LOOP_H_

#include <string>
#include <vector>

#include "bench/LineValues.h"
#include "import/target/TargetTable.h"
#include "plugin/ModuleState.h"

namespace imptable {

/// Measures what a task's lines cost in the database alone. The statements of the task's mode are
/// prepared with the parameter types and values that a run gives them, and all values are worked
/// out beforehand. Then a loop executes the statements and does nothing else.
class BareLoop {
 public:
  /// Connects. @throws std::runtime_error, as Seconds.
  BareLoop(ModuleState& state, const std::string& scenario, const std::string& task);

  /// Executes every line once. @return the seconds that this took.
  double Seconds();

 private:
  void Prepare(Statement& statement, const std::string& text);
  void BindColumns(Statement& statement, SQLUSMALLINT& number);
  void Bind(Statement& statement, SQLUSMALLINT number, std::size_t column);
  void PrepareStatements();
  void ReadLines();
  void Execute();

  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  std::vector<ParameterBuffer> buffers_;
  LineValues lines_;
  Statement insert_;
  Statement keyed_;
};

}  // namespace imptable

#endif  // BENCH_BARE_LOOP_H_
