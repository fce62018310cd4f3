#include "odbc/OdbcSession.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "core/Blanks.h"
#include "odbc/ConnectionString.h"

namespace imptable {
namespace {

constexpr SQLSMALLINT kMessageBytes = 512;
constexpr SQLSMALLINT kCompletedStringBytes = 512;
constexpr SQLSMALLINT kSourceNameBytes = 500;
constexpr std::uint16_t kDefaultNameLength = 50;
constexpr SQLSMALLINT kDbmsNameBytes = 128;

/// How long a connection may take, in seconds, as far as the driver heeds it.
constexpr SQLULEN kLoginTimeout = 15;

constexpr std::size_t kSeparatorBytes = 255;
constexpr std::int16_t kLastImportMode = 4;

}  // namespace

OdbcSession::~OdbcSession() { Release(); }

void OdbcSession::Release() noexcept {
  statement.Drop();
  std::erase_if(refused_connections_, [](SQLHDBC refused) {
    SQLDisconnect(refused);
    return Succeeded(SQLFreeConnect(refused));
  });
  if (connection != SQL_NULL_HDBC) {
    SQLDisconnect(connection);
    FreeConnection();
  }
  statement.Forget();
  std::erase_if(refused_environments_,
                [](SQLHENV refused) { return Succeeded(SQLFreeEnv(refused)); });
  if (environment != SQL_NULL_HENV) FreeEnvironment();
}

SQLRETURN OdbcSession::FreeConnection() {
  const SQLHDBC freed = std::exchange(connection, SQLHDBC{SQL_NULL_HDBC});
  const SQLRETURN code = SQLFreeConnect(freed);
  if (!Succeeded(code)) refused_connections_.push_back(freed);
  return code;
}

SQLRETURN OdbcSession::FreeEnvironment() {
  const SQLHENV freed = std::exchange(environment, SQLHENV{SQL_NULL_HENV});
  const SQLRETURN code = SQLFreeEnv(freed);
  if (!Succeeded(code)) refused_environments_.push_back(freed);
  return code;
}

bool OdbcSession::ConnectDataSource(const std::string& data_source, const std::string& user,
                                    const std::string& password) {
  connected = false;
  mask_ = PasswordMask(password);
  Release();  // a former connection whose report couldn't be written kept its handles
  // The driver manager has a driver for no name, too: it may make a file named after the password.
  if (data_source.empty()) {
    return CheckOdbcReturn(SQL_ERROR, module_.MessageText(Message::kSelectDataSource));
  }
  // Information counts as a failure, but a handle comes with it.
  SQLRETURN allocated = SQLAllocEnv(&environment);
  if (!Succeeded(allocated)) environment = SQL_NULL_HENV;
  if (!CheckOdbcReturn(allocated, module_.MessageText(Message::kCannotAllocateEnvironment))) {
    Release();
    return false;
  }
  allocated = SQLAllocConnect(environment, &connection);
  if (!Succeeded(allocated)) connection = SQL_NULL_HDBC;
  if (CheckOdbcReturn(allocated, module_.MessageText(Message::kCannotAllocateConnection))) {
    // A driver that can't limit its time connects all the same.
    SQLSetConnectOption(connection, SQL_LOGIN_TIMEOUT, kLoginTimeout);
    const std::string request = ConnectionString(data_source, user, password);
    std::array<SQLCHAR, kCompletedStringBytes> completed{};
    SQLSMALLINT completed_length = 0;
    const SQLRETURN code = SQLDriverConnect(
        connection, nullptr, SqlText(request), static_cast<SQLSMALLINT>(request.size()),
        completed.data(), kCompletedStringBytes, &completed_length, SQL_DRIVER_NOPROMPT);
    if (Succeeded(code)) {
      QueryDriverInfo();
      connected = true;
      return true;
    }
    ReportError();
    CheckOdbcReturn(FreeConnection(), module_.MessageText(Message::kCannotFreeConnection));
  } else if (connection != SQL_NULL_HDBC) {
    FreeConnection();
  }
  CheckOdbcReturn(FreeEnvironment(), module_.MessageText(Message::kCannotFreeEnvironment));
  return false;
}

void OdbcSession::DisconnectDataSource() {
  const auto step = [this](SQLRETURN code, Message message) {
    CheckOdbcReturn(code, module_.MessageText(message));
    module_.platform.message_loop.Yield();
  };
  const SQLRETURN disconnected = SQLDisconnect(connection);
  if (Succeeded(disconnected)) statement.Forget();
  step(disconnected, Message::kCannotDisconnect);
  step(FreeConnection(), Message::kCannotFreeConnection);
  step(FreeEnvironment(), Message::kCannotFreeEnvironment);
}

std::string OdbcSession::InfoText(SQLUSMALLINT item) {
  std::array<char, 2> buffer{};
  SQLSMALLINT length = 0;
  const SQLRETURN code = SQLGetInfo(connection, item, buffer.data(), buffer.size(), &length);
  if (code != SQL_SUCCESS) ReportError();
  const std::size_t shown = std::min<std::size_t>(
      strnlen(buffer.data(), buffer.size()), length > 0 ? static_cast<std::size_t>(length) : 0);
  return std::string(WithoutBlanks({buffer.data(), shown}));
}

std::uint16_t OdbcSession::InfoLength(SQLUSMALLINT item) {
  std::uint16_t value = 0;
  SQLSMALLINT length = 0;
  SQLGetInfo(connection, item, &value, sizeof value, &length);
  return value == 0 ? kDefaultNameLength : value;
}

void OdbcSession::QueryDriverInfo() {
  quote_char = InfoText(SQL_IDENTIFIER_QUOTE_CHAR);
  max_column_name_length = InfoLength(SQL_MAX_COLUMN_NAME_LEN);
  max_table_name_length = InfoLength(SQL_MAX_TABLE_NAME_LEN);
  escape_char = InfoText(SQL_SEARCH_PATTERN_ESCAPE);
  QueryDialect();
}

void OdbcSession::QueryDialect() {
  std::array<char, kDbmsNameBytes> name{};
  SQLSMALLINT length = 0;
  const SQLRETURN code =
      SQLGetInfo(connection, SQL_DBMS_NAME, name.data(), kDbmsNameBytes, &length);
  // A driver that doesn't tell is one that nothing is known of; why is nobody's matter later.
  if (code != SQL_SUCCESS) TakeDiagnostics(SQL_NULL_HSTMT);
  const std::size_t known = Succeeded(code) ? strnlen(name.data(), name.size()) : 0;
  dialect = &DialectOf({name.data(), known});
}

bool OdbcSession::CheckOdbcReturn(SQLRETURN code, const std::string& text) {
  if (code == SQL_SUCCESS) return true;
  if (execution_mode == kDialogMode) {
    module_.platform.warning_box.Warn(text, module_.MessageText(Message::kTitle));
  } else {
    module_.WriteReport(text, ReportKind::kError);
  }
  return false;
}

bool OdbcSession::IsIgnorableDuplicate(SQLINTEGER native_code) const {
  if (module_.run.duplicate_key != 1) return false;
  try {
    return AsInt32(module_.run.error_code, "CodErr") == native_code;
  } catch (const RuntimeFault&) {
    return false;  // a text that is no number equals no native code
  }
}

void OdbcSession::ShowText(std::int16_t reporting_mode, const std::string& text) {
  if (reporting_mode == kDialogMode) {
    module_.platform.warning_box.Warn(text, module_.MessageText(Message::kTitle));
  } else if (reporting_mode == kRunMode) {
    if (module_.run.mode <= kLastImportMode && error_file != nullptr) {
      error_file->Write(module_.DateTimeText() + module_.MessageText(Message::kAtLine) +
                        SignedText(line_number) + ' ' + text + std::string(SystemLineEnd()));
    } else {
      module_.WriteReport(text, ReportKind::kError);
    }
  }
}

void OdbcSession::ReportText(const std::string& text) {
  ShowText(execution_mode, text);
  error_reported = true;
}

SQLRETURN OdbcSession::NextDiagnostic(SQLHDBC failed_connection, SQLHSTMT failed_statement,
                                      Diagnostic& diagnostic) {
  std::array<SQLCHAR, 16> state{};
  std::array<SQLCHAR, kMessageBytes> message{};
  SQLSMALLINT length = 0;
  diagnostic.native_code = 0;
  const SQLRETURN code = SQLError(environment, failed_connection, failed_statement, state.data(),
                                  &diagnostic.native_code, message.data(), kMessageBytes, &length);
  if (!Succeeded(code)) return code;
  const std::size_t shown =
      static_cast<std::size_t>(std::clamp<SQLSMALLINT>(length, 0, kMessageBytes - 1));
  const bool cut = shown + 1 == message.size();
  diagnostic.text = mask_.Masked({reinterpret_cast<const char*>(message.data()), shown}, cut);
  return code;
}

std::vector<Diagnostic> OdbcSession::TakeDiagnostics(SQLHSTMT statement_with_some) {
  std::vector<Diagnostic> taken;
  Diagnostic diagnostic;
  SQLRETURN code = SQL_SUCCESS;
  while (code == SQL_SUCCESS) {
    code = NextDiagnostic(connection, statement_with_some, diagnostic);
    if (Succeeded(code)) taken.push_back(diagnostic);
  }
  return taken;
}

bool OdbcSession::ShowUnlessIgnored(const Diagnostic& diagnostic, std::int16_t reporting_mode,
                                    bool* duplicate_ignored) {
  if (duplicate_ignored != nullptr && IsIgnorableDuplicate(diagnostic.native_code)) {
    *duplicate_ignored = true;
    return false;
  }
  if (!diagnostic.text.empty()) {
    ShowText(reporting_mode, '(' + SignedText(diagnostic.native_code) + ") " + diagnostic.text);
  }
  return true;
}

void OdbcSession::Report(SQLHDBC failed_connection, SQLHSTMT failed_statement,
                         std::int16_t reporting_mode, bool* duplicate_ignored) {
  Diagnostic diagnostic;
  SQLRETURN code = SQL_SUCCESS;
  while (code == SQL_SUCCESS) {
    code = NextDiagnostic(failed_connection, failed_statement, diagnostic);
    if (Succeeded(code) && !ShowUnlessIgnored(diagnostic, reporting_mode, duplicate_ignored)) {
      return;
    }
  }
  error_reported = true;
}

void OdbcSession::ReportOdbcError(SQLHDBC failed_connection, SQLHSTMT failed_statement,
                                  std::int16_t reporting_mode, bool& duplicate_ignored) {
  Report(failed_connection, failed_statement, reporting_mode, &duplicate_ignored);
}

void OdbcSession::ReportError(SQLHSTMT failed_statement) {
  Report(connection, failed_statement, execution_mode, nullptr);
}

void OdbcSession::ReportTaken(const std::vector<Diagnostic>& taken, bool* duplicate_ignored) {
  for (const Diagnostic& diagnostic : taken) {
    if (!ShowUnlessIgnored(diagnostic, execution_mode, duplicate_ignored)) return;
  }
  error_reported = true;
}

SQLRETURN OdbcSession::Execute(SQLHSTMT prepared) {
  const Cancellation::Waiting waiting(cancellation, prepared);
  return SQLExecute(prepared);
}

SQLRETURN OdbcSession::ExecuteText(SQLHSTMT allocated, const std::string& text) {
  const Cancellation::Waiting waiting(cancellation, allocated);
  return SQLExecDirect(allocated, SqlText(text), SQL_NTS);
}

void OdbcSession::ReadSystemDecimalSeparator() {
  const auto value = module_.platform.registry.Read(
      {kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal");
  if (!value || value->data.size() <= 1 || value->data.size() > kSeparatorBytes) return;
  system_decimal_separator = value->data.substr(0, value->data.size() - 1);
}

void ListDataSources(const std::function<void(const std::string&)>& add_item) {
  SQLHENV environment = SQL_NULL_HENV;
  SQLAllocEnv(&environment);
  for (;;) {
    std::array<SQLCHAR, kSourceNameBytes> name{};
    std::array<SQLCHAR, kSourceNameBytes> description{};
    SQLSMALLINT name_length = 0;
    SQLSMALLINT description_length = 0;
    const SQLRETURN code =
        SQLDataSources(environment, SQL_FETCH_NEXT, name.data(), kSourceNameBytes, &name_length,
                       description.data(), kSourceNameBytes, &description_length);
    if (!Succeeded(code)) break;
    const std::size_t length =
        static_cast<std::size_t>(std::clamp<SQLSMALLINT>(name_length, 0, kSourceNameBytes - 1));
    add_item(std::string(reinterpret_cast<const char*>(name.data()), length));
  }
  SQLFreeEnv(environment);
}

}  // namespace imptable
