#include "odbc/Statement.h"

namespace imptable {

SQLRETURN FreeStatement(SQLHSTMT& statement) noexcept {
  const SQLRETURN code = SQLFreeStmt(statement, SQL_DROP);
  if (code == SQL_SUCCESS) statement = SQL_NULL_HSTMT;
  return code;
}

SQLRETURN Statement::Allocate(SQLHDBC connection) {
  Drop();
  SQLHSTMT allocated = SQL_NULL_HSTMT;
  const SQLRETURN code = SQLAllocStmt(connection, &allocated);
  raw_ = Succeeded(code) ? allocated : SQL_NULL_HSTMT;
  if (code != SQL_SUCCESS) Drop();
  return code;
}

void Statement::Drop() noexcept {
  // After success with information the statement is gone as well. Freeing its handle again could
  // free another statement.
  if (raw_ != SQL_NULL_HSTMT && Succeeded(FreeStatement(raw_))) Forget();
}

}  // namespace imptable
