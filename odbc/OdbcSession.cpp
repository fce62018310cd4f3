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

}  // namespace

OdbcSession::~OdbcSession() { Release(); }

void OdbcSession::Release() noexcept {
  std::erase_if(refused_connections_, [](SQLHDBC refused) {
    SQLDisconnect(refused);
    return Succeeded(SQLFreeConnect(refused));
  });
  if (connection != SQL_NULL_HDBC) {
    SQLDisconnect(connection);
    FreeConnection();
  }
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
  // The driver manager finds a driver for an empty name, too. That driver may make a file named
  // after the password.
  if (data_source.empty()) {
    return CheckOdbcReturn(SQL_ERROR, Message::kSelectDataSource);
  }
  // Success with information counts as a failure here, but it comes with a handle.
  SQLRETURN allocated = SQLAllocEnv(&environment);
  if (!Succeeded(allocated)) environment = SQL_NULL_HENV;
  if (!CheckOdbcReturn(allocated, Message::kCannotAllocateEnvironment)) {
    Release();
    return false;
  }
  allocated = SQLAllocConnect(environment, &connection);
  if (!Succeeded(allocated)) connection = SQL_NULL_HDBC;
  if (CheckOdbcReturn(allocated, Message::kCannotAllocateConnection)) {
    // A driver without a time limit connects all the same.
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
    ReportOdbcError();
    CheckOdbcReturn(FreeConnection(), Message::kCannotFreeConnection);
  } else if (connection != SQL_NULL_HDBC) {
    FreeConnection();
  }
  CheckOdbcReturn(FreeEnvironment(), Message::kCannotFreeEnvironment);
  return false;
}

void OdbcSession::DisconnectDataSource() {
  const auto step = [this](SQLRETURN code, Message message) {
    CheckOdbcReturn(code, message);
    loop_.Yield();
  };
  step(SQLDisconnect(connection), Message::kCannotDisconnect);
  step(FreeConnection(), Message::kCannotFreeConnection);
  step(FreeEnvironment(), Message::kCannotFreeEnvironment);
}

std::string OdbcSession::InfoText(SQLUSMALLINT item) {
  std::array<char, 2> buffer{};
  SQLSMALLINT length = 0;
  const SQLRETURN code = SQLGetInfo(connection, item, buffer.data(), buffer.size(), &length);
  if (code != SQL_SUCCESS) ReportOdbcError();
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
  // A driver that doesn't tell counts as unknown. Drop its diagnostics: nobody may read them later.
  if (code != SQL_SUCCESS) TakeDiagnostics(SQL_NULL_HSTMT);
  const std::size_t known = Succeeded(code) ? strnlen(name.data(), name.size()) : 0;
  dialect = &DialectOf({name.data(), known});
}

bool OdbcSession::CheckOdbcReturn(SQLRETURN code, Message step) {
  if (code == SQL_SUCCESS) return true;
  listener->OnFailedStep(step);
  return false;
}

SQLRETURN OdbcSession::NextDiagnostic(SQLHSTMT statement, Diagnostic& diagnostic) {
  std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  std::array<SQLCHAR, kMessageBytes> message{};
  SQLSMALLINT length = 0;
  diagnostic.native_code = 0;
  const SQLRETURN code = SQLError(environment, connection, statement, state.data(),
                                  &diagnostic.native_code, message.data(), kMessageBytes, &length);
  if (!Succeeded(code)) return code;
  diagnostic.state.assign(reinterpret_cast<const char*>(state.data()), SQL_SQLSTATE_SIZE);
  const std::size_t shown =
      static_cast<std::size_t>(std::clamp<SQLSMALLINT>(length, 0, kMessageBytes - 1));
  const bool cut = shown + 1 == message.size();
  diagnostic.text = mask_.Masked({reinterpret_cast<const char*>(message.data()), shown}, cut);
  return code;
}

std::vector<Diagnostic> OdbcSession::TakeDiagnostics(SQLHSTMT statement,
                                                     std::optional<SQLINTEGER> last) {
  std::vector<Diagnostic> taken;
  Diagnostic diagnostic;
  SQLRETURN code = SQL_SUCCESS;
  while (code == SQL_SUCCESS) {
    code = NextDiagnostic(statement, diagnostic);
    if (!Succeeded(code)) break;
    taken.push_back(diagnostic);
    if (diagnostic.native_code == last) break;
  }
  return taken;
}

void OdbcSession::ReportOdbcError(SQLHSTMT statement) {
  listener->OnDiagnostics(TakeDiagnostics(statement));
}

SQLRETURN OdbcSession::Execute(SQLHSTMT prepared) {
  const Cancellation::Waiting waiting(cancellation, prepared);
  return SQLExecute(prepared);
}

SQLRETURN OdbcSession::ExecuteText(SQLHSTMT allocated, const std::string& text) {
  const Cancellation::Waiting waiting(cancellation, allocated);
  return SQLExecDirect(allocated, SqlText(text), SQL_NTS);
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
