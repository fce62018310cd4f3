#ifndef ODBC_ODBC_SESSION_H_
#define ODBC_ODBC_SESSION_H_

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/ModuleCommun.h"
#include "core/RunFile.h"
#include "odbc/Cancellation.h"
#include "odbc/Dialect.h"
#include "odbc/OdbcApi.h"
#include "odbc/PasswordMask.h"
#include "odbc/Statement.h"

namespace imptable {

/// Where diagnostics go: never change.
inline constexpr std::int16_t kDialogMode = 0;  // message boxes
inline constexpr std::int16_t kRunMode = 1;     // the execution report, or the open ".ERR" file

/// What a driver says about a failure, or about a success.
struct Diagnostic {
  SQLINTEGER native_code = 0;
  std::string text;  // without the connection's password
};

/// The one connection of the component, the driver's properties, and the single path by which
/// every ODBC failure becomes text.
class OdbcSession {
 public:
  /// @param module  borrowed; must outlive the session.
  explicit OdbcSession(ModuleCommun& module) : module_(module) {}
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;
  ~OdbcSession();

  /// Connects as ConnectionString says; without a name of a data source nothing is tried. A failure
  /// is reported and leaves no handle behind.
  bool ConnectDataSource(const std::string& data_source, const std::string& user,
                         const std::string& password);

  /// Disconnects and frees the handles; a failing step is reported and doesn't stop the others.
  /// What couldn't be freed is, before the next connection or with the session.
  void DisconnectDataSource();

  /// @return true only for code 0; any other code is reported with `text`.
  bool CheckOdbcReturn(SQLRETURN code, const std::string& text);

  /// Fetches every diagnostic of the connection or statement and shows it. Sets `error_reported`,
  /// unless the native code is the duplicate that the task ignores: then `duplicate_ignored` is set
  /// and the rest is left unread. The connection's password is hidden in what is shown.
  /// @param statement  SQL_NULL_HSTMT for a diagnostic of the connection.
  /// @param reporting_mode  kDialogMode or kRunMode; anything else shows nothing.
  void ReportOdbcError(SQLHDBC connection, SQLHSTMT statement, std::int16_t reporting_mode,
                       bool& duplicate_ignored);

  /// The same on this connection, in the current execution mode, for callers that ignore no
  /// duplicate: every diagnostic is shown.
  void ReportError(SQLHSTMT statement = SQL_NULL_HSTMT);

  /// Executes a prepared statement, or a text at once; `cancellation` reaches it meanwhile.
  SQLRETURN Execute(SQLHSTMT prepared);
  SQLRETURN ExecuteText(SQLHSTMT allocated, const std::string& text);

  /// Fetches every diagnostic of a statement of this connection, which the next call on it loses,
  /// and shows none.
  std::vector<Diagnostic> TakeDiagnostics(SQLHSTMT statement_with_some);

  /// Shows diagnostics that were taken, in the current execution mode.
  /// @param duplicate_ignored  as for ReportOdbcError; null for those who ignore no duplicate.
  void ReportTaken(const std::vector<Diagnostic>& taken, bool* duplicate_ignored);

  /// Shows an own text where diagnostics go, in the current execution mode.
  void ReportText(const std::string& text);

  /// Reads the user's decimal separator; keeps the previous one when there is none.
  void ReadSystemDecimalSeparator();

  SQLHENV environment = SQL_NULL_HENV;
  SQLHDBC connection = SQL_NULL_HDBC;
  Statement statement;  // of the running import mode
  bool connected = false;

  const Dialect* dialect = &DialectOf({});
  Cancellation cancellation;

  std::string quote_char;   // empty: the driver has none
  std::string escape_char;  // of search patterns
  std::uint16_t max_column_name_length = 0;
  std::uint16_t max_table_name_length = 0;

  std::int16_t execution_mode = kDialogMode;
  bool error_reported = false;
  RunFile* error_file = nullptr;  // the ".ERR" file while it is open; borrowed
  std::int32_t line_number = 0;   // of the source line being processed
  std::string system_decimal_separator = ".";

 private:
  /// Gives back every handle that is still held, in silence.
  void Release() noexcept;

  /// The connection and the environment are no longer the session's, freed or refused.
  /// @return what the driver manager says.
  SQLRETURN FreeConnection();
  SQLRETURN FreeEnvironment();
  void QueryDriverInfo();
  std::string InfoText(SQLUSMALLINT item);
  std::uint16_t InfoLength(SQLUSMALLINT item);
  void QueryDialect();
  SQLRETURN NextDiagnostic(SQLHDBC failed_connection, SQLHSTMT failed_statement,
                           Diagnostic& diagnostic);
  void Report(SQLHDBC failed_connection, SQLHSTMT failed_statement, std::int16_t reporting_mode,
              bool* duplicate_ignored);

  /// @return false for the ignorable duplicate.
  bool ShowUnlessIgnored(const Diagnostic& diagnostic, std::int16_t reporting_mode,
                         bool* duplicate_ignored);
  void ShowText(std::int16_t reporting_mode, const std::string& text);
  bool IsIgnorableDuplicate(SQLINTEGER native_code) const;

  ModuleCommun& module_;
  PasswordMask mask_;
  std::vector<SQLHDBC> refused_connections_;  // that the driver manager didn't free
  std::vector<SQLHENV> refused_environments_;
};

/// Calls `add_item` with the name of each ODBC data source.
void ListDataSources(const std::function<void(const std::string&)>& add_item);

}  // namespace imptable

#endif  // ODBC_ODBC_SESSION_H_
