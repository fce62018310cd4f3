#ifndef TESTS_DRIVERS_ODBCCLIENT_H_
#define TESTS_DRIVERS_ODBCCLIENT_H_

#include <sql.h>
#include <sqlext.h>

#include <string>
#include <vector>

namespace imptable {

/// One diagnostic as SQLError gave it.
struct SeenDiagnostic {
  SQLRETURN code = SQL_SUCCESS;
  std::string state;
  SQLINTEGER native = 0;
  std::string text;
  bool operator==(const SeenDiagnostic&) const = default;
};

/// The plainest application there can be: an environment, a connection and a statement, taken and
/// given back in the order that the driver manager wants.
class OdbcClient {
 public:
  explicit OdbcClient(const std::string& data_source);
  ~OdbcClient();
  OdbcClient(const OdbcClient&) = delete;
  OdbcClient& operator=(const OdbcClient&) = delete;

  /// What SQLDriverConnect returned.
  SQLRETURN connected() const { return connected_; }
  SQLHDBC connection() const { return connection_; }
  SQLHSTMT statement() const { return statement_; }

  SQLRETURN Prepare(const std::string& sql);
  SQLRETURN ExecDirect(const std::string& sql);
  SQLRETURN Execute() { return SQLExecute(statement_); }
  SQLLEN RowCount();
  SQLRETURN Columns(const std::string& table);
  void Close() { SQLFreeStmt(statement_, SQL_CLOSE); }

  /// @param size  of the buffer for each text
  std::vector<SeenDiagnostic> StatementDiagnostics(SQLSMALLINT size = 512);
  std::vector<SeenDiagnostic> ConnectionDiagnostics();
  /// The remaining rows' values of one column; "<null>" for NULL.
  std::vector<std::string> FetchAll(SQLUSMALLINT column);

 private:
  static std::vector<SeenDiagnostic> Diagnostics(SQLHDBC connection, SQLHSTMT statement,
                                                 SQLSMALLINT size);

  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  SQLHSTMT statement_ = SQL_NULL_HSTMT;
  SQLRETURN connected_ = SQL_ERROR;
};

}  // namespace imptable

#endif  // TESTS_DRIVERS_ODBCCLIENT_H_
