#include "import/target/Execution.h"

#include <algorithm>

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

/// 0 after a reported failure.
SQLLEN ChangedRows(OdbcSession& session, SQLHSTMT statement) {
  SQLLEN rows = 0;
  if (SQLRowCount(statement, &rows) == SQL_SUCCESS) return rows;
  session.ReportError(statement);
  return 0;
}

}  // namespace

Execution ExecuteInsert(OdbcSession& session, SQLHSTMT statement, bool ignores_duplicates) {
  const SQLRETURN code = session.Execute(statement);
  if (code == SQL_SUCCESS) return {};
  Execution execution;
  if (code == SQL_SUCCESS_WITH_INFO) {
    // The call for the count would lose them.
    const std::vector<Diagnostic> diagnostics = session.TakeDiagnostics(statement);
    if (!InsertedNothing(statement)) return {};
    session.ReportTaken(diagnostics, ignores_duplicates ? &execution.duplicate_ignored : nullptr);
  } else if (ignores_duplicates) {
    session.ReportOdbcError(session.connection, statement, session.execution_mode,
                            execution.duplicate_ignored);
  } else {
    session.ReportError(statement);
  }
  execution.refused = !execution.duplicate_ignored;
  return execution;
}

Execution ExecuteKeyed(OdbcSession& session, SQLHSTMT statement) {
  const SQLRETURN code = session.Execute(statement);
  if (!Succeeded(code)) {
    session.ReportError(statement);
    return {.refused = true};
  }
  const bool may_be_refused =
      code == SQL_SUCCESS_WITH_INFO && session.dialect->refuses_with_information;
  const std::vector<Diagnostic> diagnostics =
      may_be_refused ? session.TakeDiagnostics(statement) : std::vector<Diagnostic>();
  const Execution execution{.rows = ChangedRows(session, statement)};
  if (execution.changed() || !HasServerCode(diagnostics)) return execution;
  session.ReportTaken(diagnostics, nullptr);
  return {.refused = true};
}

}  // namespace imptable
