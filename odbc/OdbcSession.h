#ifndef ODBC_ODBC_SESSION_H_
#define ODBC_ODBC_SESSION_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "odbc/Cancellation.h"
#include "odbc/Diagnostic.h"
#include "odbc/Dialect.h"
#include "odbc/OdbcApi.h"
#include "odbc/PasswordMask.h"
#include "odbc/Statement.h"
#include "platform/system/MessageLoop.h"

namespace imptable {

/// One connection, the driver's properties, and the single path by which every ODBC failure becomes
/// data.
class OdbcSession {
 public:
  /// @param loop, failures  borrowed; must outlive the session.
  OdbcSession(MessageLoop& loop, FailureListener& failures) : listener(&failures), loop_(loop) {}
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;
  ~OdbcSession();

  /// Connects as ConnectionString says. Fails at once when the data source has no name. A failure
  /// is reported and leaves no handle behind.
  bool ConnectDataSource(const std::string& data_source, const std::string& user,
                         const std::string& password);

  /// Disconnects and frees the handles; a failing step is reported and doesn't stop the others.
  /// A handle that can't be freed yet is freed before the next connection or with the session.
  void DisconnectDataSource();

  /// @return true only for code 0; for any other code the listener is told the step.
  bool CheckOdbcReturn(SQLRETURN code, Message step);

  /// Tells the listener every diagnostic of a statement of this connection.
  /// @param statement  SQL_NULL_HSTMT for the diagnostics of the connection.
  void ReportOdbcError(SQLHSTMT statement = SQL_NULL_HSTMT);

  /// Fetches the diagnostics of a statement, or of the connection. The next call on the same handle
  /// loses them. The connection's password is hidden in their texts.
  /// @param last  a native code: reading ends with the diagnostic that has it.
  std::vector<Diagnostic> TakeDiagnostics(SQLHSTMT statement,
                                          std::optional<SQLINTEGER> last = std::nullopt);

  /// Executes a prepared statement, or a text at once. `cancellation` can cancel it meanwhile.
  SQLRETURN Execute(SQLHSTMT prepared);
  SQLRETURN ExecuteText(SQLHSTMT allocated, const std::string& text);

  /// Where failures go from now on; borrowed.
  FailureListener* listener;

  SQLHENV environment = SQL_NULL_HENV;
  SQLHDBC connection = SQL_NULL_HDBC;
  bool connected = false;

  const Dialect* dialect = &DialectOf({});
  Cancellation cancellation;

  std::string quote_char;   // empty: the driver has none
  std::string escape_char;  // of search patterns
  std::uint16_t max_column_name_length = 0;
  std::uint16_t max_table_name_length = 0;

 private:
  /// Frees every handle that is still held. Reports nothing.
  void Release() noexcept;

  /// Free the connection and the environment. A handle that can't be freed moves to the refused
  /// ones.
  /// @return what the driver manager says.
  SQLRETURN FreeConnection();
  SQLRETURN FreeEnvironment();
  void QueryDriverInfo();
  std::string InfoText(SQLUSMALLINT item);
  std::uint16_t InfoLength(SQLUSMALLINT item);
  void QueryDialect();
  SQLRETURN NextDiagnostic(SQLHSTMT statement, Diagnostic& diagnostic);

  MessageLoop& loop_;
  PasswordMask mask_;
  std::vector<SQLHDBC> refused_connections_;  // that the driver manager didn't free
  std::vector<SQLHENV> refused_environments_;
};

/// Calls `add_item` with the name of each ODBC data source.
void ListDataSources(const std::function<void(const std::string&)>& add_item);

}  // namespace imptable

#endif  // ODBC_ODBC_SESSION_H_
