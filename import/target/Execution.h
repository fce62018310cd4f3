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
  SQLLEN rows = 0;  // of a keyed statement that wasn't refused, as SQLRowCount has them

  /// What it says about a refusal, or about a count that it refuses.
  std::vector<Diagnostic> diagnostics = {};

  /// Whether at least one row was changed: -1 says nothing.
  bool changed() const { return rows != 0 && rows != -1; }
};

/// Executes a prepared INSERT. A driver may call a refusal a success with information: then no row
/// was inserted.
/// @param ignorable  the native code of the duplicate that the task ignores.
Execution ExecuteInsert(OdbcSession& session, SQLHSTMT statement,
                        std::optional<SQLINTEGER> ignorable);

/// Executes a prepared UPDATE or DELETE, for which no row is no failure. An information may be a
/// refusal in the database's dialect.
Execution ExecuteKeyed(OdbcSession& session, SQLHSTMT statement);

/// The record's result of an INSERT.
RecordResult ResultOfInsert(Execution execution);

/// The record's result of a keyed statement. @param changed  the outcome when it changed a row.
RecordResult ResultOfKeyed(Execution execution, Outcome changed);

}  // namespace imptable

#endif  // IMPORT_TARGET_EXECUTION_H_
