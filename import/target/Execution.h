#ifndef IMPORT_TARGET_EXECUTION_H_
#define IMPORT_TARGET_EXECUTION_H_

#include <optional>
#include <vector>

#include "import/target/Record.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// What the database made of one record's statement.
struct Execution {
  bool refused = false;
  bool duplicate_ignored = false;
  SQLLEN rows = 0;  // from SQLRowCount; only for a keyed statement that wasn't refused

  /// What the database says about a refusal, or about a row count that it can't give.
  std::vector<Diagnostic> diagnostics = {};

  /// Whether at least one row was changed. The count -1 doesn't say.
  bool changed() const { return rows != 0 && rows != -1; }
};

/// Executes a prepared INSERT. A driver may report a refusal as a success with information: the
/// INSERT counts as refused when it inserted no row.
/// @param ignorable  the native code of the duplicate that the task ignores.
Execution ExecuteInsert(OdbcSession& session, SQLHSTMT statement,
                        std::optional<SQLINTEGER> ignorable);

/// Executes a prepared UPDATE or DELETE, which may find no row without failing. In some dialects a
/// success with information may be a refusal.
Execution ExecuteKeyed(OdbcSession& session, SQLHSTMT statement);

/// The record's result of an INSERT.
RecordResult ResultOfInsert(Execution execution);

/// The record's result of a keyed statement. @param changed  the outcome when it changed a row.
RecordResult ResultOfKeyed(Execution execution, Outcome changed);

}  // namespace imptable

#endif  // IMPORT_TARGET_EXECUTION_H_
