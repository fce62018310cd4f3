#include "import/target/Execution.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

bool HasServerCode(const std::vector<Diagnostic>& diagnostics) {
  return std::any_of(diagnostics.begin(), diagnostics.end(),
                     [](const Diagnostic& each) { return each.native_code != 0; });
}

/// Whether an INSERT that ended with information inserted nothing.
bool InsertedNothing(SQLHSTMT statement) {
  SQLLEN rows = 0;
  return Succeeded(SQLRowCount(statement, &rows)) && rows == 0;
}

/// Counts the changed rows. When the database refuses to count, the count is 0 and its diagnostics
/// are kept.
void CountRows(OdbcSession& session, SQLHSTMT statement, Execution& execution) {
  if (SQLRowCount(statement, &execution.rows) == SQL_SUCCESS) return;
  execution.rows = 0;
  execution.diagnostics = session.TakeDiagnostics(statement);
  if (execution.diagnostics.empty()) execution.diagnostics.emplace_back();
}

RecordResult ResultOf(Execution execution, Outcome outcome) {
  RecordResult result{.outcome = execution.refused ? Outcome::kRejected : outcome};
  for (Diagnostic& each : execution.diagnostics) {
    result.diagnostics.push_back(
        {.stage = RecordDiagnostic::Stage::kExecution, .driver = std::move(each)});
  }
  return result;
}

}  // namespace

Execution ExecuteInsert(OdbcSession& session, SQLHSTMT statement,
                        std::optional<SQLINTEGER> ignorable) {
  const SQLRETURN code = session.Execute(statement);
  if (code == SQL_SUCCESS) return {};
  Execution execution;
  // Now, because the call for the row count would lose them.
  execution.diagnostics = session.TakeDiagnostics(statement, ignorable);
  if (code == SQL_SUCCESS_WITH_INFO && !InsertedNothing(statement)) return {};
  const std::vector<Diagnostic>& diagnostics = execution.diagnostics;
  if (ignorable && !diagnostics.empty() && diagnostics.back().native_code == *ignorable) {
    execution.duplicate_ignored = true;
    execution.diagnostics.pop_back();
  }
  execution.refused = !execution.duplicate_ignored;
  return execution;
}

Execution ExecuteKeyed(OdbcSession& session, SQLHSTMT statement) {
  const SQLRETURN code = session.Execute(statement);
  if (!Succeeded(code)) {
    return {.refused = true, .diagnostics = session.TakeDiagnostics(statement)};
  }
  const bool may_be_refused =
      code == SQL_SUCCESS_WITH_INFO && session.dialect->refuses_with_information;
  std::vector<Diagnostic> information =
      may_be_refused ? session.TakeDiagnostics(statement) : std::vector<Diagnostic>();
  Execution execution;
  CountRows(session, statement, execution);
  if (execution.changed() || !HasServerCode(information)) return execution;
  execution.refused = true;
  execution.diagnostics.insert(execution.diagnostics.end(),
                               std::make_move_iterator(information.begin()),
                               std::make_move_iterator(information.end()));
  return execution;
}

RecordResult ResultOfInsert(Execution execution) {
  const Outcome outcome = execution.duplicate_ignored ? Outcome::kIgnored : Outcome::kInserted;
  return ResultOf(std::move(execution), outcome);
}

RecordResult ResultOfKeyed(Execution execution, Outcome changed) {
  const Outcome unchanged = execution.rows == 0 ? Outcome::kUnmatched : Outcome::kUncounted;
  const Outcome outcome = execution.changed() ? changed : unchanged;
  return ResultOf(std::move(execution), outcome);
}

}  // namespace imptable
