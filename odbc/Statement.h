#ifndef ODBC_STATEMENT_H_
#define ODBC_STATEMENT_H_

#include <utility>

#include "odbc/OdbcApi.h"

namespace imptable {

/// Sole owner of an ODBC statement. Movable, not copyable; dropped with its owner.
class Statement {
 public:
  Statement() = default;
  Statement(Statement&& other) noexcept
      : raw_(std::exchange(other.raw_, SQLHSTMT{SQL_NULL_HSTMT})) {}
  Statement& operator=(Statement&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  ~Statement() { Drop(); }

  /// @param connection  borrowed; must outlive the statement.
  /// @return the ODBC code; the statement is empty unless the code is 0.
  SQLRETURN Allocate(SQLHDBC connection);

  /// Drops the statement if there is one; the handle is forgotten only when the driver manager
  /// confirms.
  void Drop() noexcept;

  /// Empties the object without a call: the statement is gone already, say with its connection.
  void Forget() noexcept { raw_ = SQL_NULL_HSTMT; }

  SQLHSTMT raw() const noexcept { return raw_; }
  explicit operator bool() const noexcept { return raw_ != SQL_NULL_HSTMT; }

 private:
  SQLHSTMT raw_ = SQL_NULL_HSTMT;
};

/// Releases a statement with SQL_DROP; sets the handle to null only when that returns 0. Reports
/// nothing.
/// @return the ODBC code.
SQLRETURN FreeStatement(SQLHSTMT& statement) noexcept;

}  // namespace imptable

#endif  // ODBC_STATEMENT_H_
