#include "odbc/Statement.h"

namespace imptable {

void FreeStatement(SQLHSTMT& statement) noexcept {
  if (SQLFreeStmt(statement, SQL_DROP) == SQL_SUCCESS) statement = SQL_NULL_HSTMT;
}

SQLRETURN Statement::Allocate(SQLHDBC connection) {
  Drop();
  SQLHSTMT allocated = SQL_NULL_HSTMT;
  const SQLRETURN code = SQLAllocStmt(connection, &allocated);
  raw_ = code == SQL_SUCCESS ? allocated : SQL_NULL_HSTMT;
  return code;
}

void Statement::Drop() noexcept {
  if (raw_ != SQL_NULL_HSTMT) FreeStatement(raw_);
}

}  // namespace imptable
