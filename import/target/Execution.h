#ifndef IMPORT_TARGET_EXECUTION_H_
#define IMPORT_TARGET_EXECUTION_H_

#include "odbc/OdbcSession.h"

namespace imptable {

/// What the database made of one line's statement.
struct Execution {
  bool refused = false;
  bool duplicate_ignored = false;
  SQLLEN rows = 0;  // of a keyed statement that wasn't refused, as SQLRowCount has them

  /// Whether at least one row was changed: -1 says nothing.
  bool changed() const { return rows != 0 && rows != -1; }
};

/// Executes a prepared INSERT; reports the diagnostics of a refusal. A driver may call a refusal a
/// success with information: then no row was inserted.
/// @param ignores_duplicates  whether the task's ignorable duplicate is heeded.
Execution ExecuteInsert(OdbcSession& session, SQLHSTMT statement, bool ignores_duplicates);

/// Executes a prepared UPDATE or DELETE, for which no row is no failure; reports the diagnostics of
/// a refusal, among them an information that is one in the database's dialect.
Execution ExecuteKeyed(OdbcSession& session, SQLHSTMT statement);

}  // namespace imptable

#endif  // IMPORT_TARGET_EXECUTION_H_
