#include "tests/drivers/OdbcClient.h"

namespace imptable {
namespace {

// ODBC 2 takes its texts without const and never writes to them.
SQLCHAR* Odbc(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

}  // namespace

OdbcClient::OdbcClient(const std::string& data_source) {
  SQLAllocEnv(&environment_);
  SQLAllocConnect(environment_, &connection_);
  const std::string text = "DSN=" + data_source + ";UID=me;PWD=secret";
  SQLCHAR out[256];
  SQLSMALLINT out_length = 0;
  connected_ = SQLDriverConnect(connection_, nullptr, Odbc(text), SQL_NTS, out, sizeof out,
                                &out_length, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(connected_)) SQLAllocStmt(connection_, &statement_);
}

OdbcClient::~OdbcClient() {
  if (statement_ != SQL_NULL_HSTMT) SQLFreeStmt(statement_, SQL_DROP);
  if (SQL_SUCCEEDED(connected_)) SQLDisconnect(connection_);
  SQLFreeConnect(connection_);
  SQLFreeEnv(environment_);
}

SQLRETURN OdbcClient::Prepare(const std::string& sql) {
  return SQLPrepare(statement_, Odbc(sql), SQL_NTS);
}

SQLRETURN OdbcClient::ExecDirect(const std::string& sql) {
  return SQLExecDirect(statement_, Odbc(sql), SQL_NTS);
}

SQLLEN OdbcClient::RowCount() {
  SQLLEN count = -99;
  SQLRowCount(statement_, &count);
  return count;
}

SQLRETURN OdbcClient::Columns(const std::string& table) {
  return SQLColumns(statement_, nullptr, 0, nullptr, 0, Odbc(table), SQL_NTS, nullptr, 0);
}

std::vector<SeenDiagnostic> OdbcClient::StatementDiagnostics(SQLSMALLINT size) {
  return Diagnostics(SQL_NULL_HDBC, statement_, size);
}

std::vector<SeenDiagnostic> OdbcClient::ConnectionDiagnostics() {
  return Diagnostics(connection_, SQL_NULL_HSTMT, 512);
}

std::vector<std::string> OdbcClient::FetchAll(SQLUSMALLINT column) {
  char text[128];
  SQLLEN length = 0;
  SQLBindCol(statement_, column, SQL_C_CHAR, text, sizeof text, &length);
  std::vector<std::string> values;
  while (SQL_SUCCEEDED(SQLFetch(statement_))) {
    values.emplace_back(length == SQL_NULL_DATA ? "<null>" : text);
  }
  SQLFreeStmt(statement_, SQL_UNBIND);
  return values;
}

std::vector<SeenDiagnostic> OdbcClient::Diagnostics(SQLHDBC connection, SQLHSTMT statement,
                                                    SQLSMALLINT size) {
  std::vector<SeenDiagnostic> seen;
  std::string text(static_cast<std::size_t>(size), '\0');
  while (true) {
    SQLCHAR state[SQL_SQLSTATE_SIZE + 1] = "";
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN code = SQLError(SQL_NULL_HENV, connection, statement, state, &native,
                                    reinterpret_cast<SQLCHAR*>(text.data()), size, &length);
    if (!SQL_SUCCEEDED(code)) return seen;
    seen.push_back(
        {code, reinterpret_cast<const char*>(state), native, text.substr(0, text.find('\0'))});
  }
}

}  // namespace imptable
