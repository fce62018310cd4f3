// Entry points on environments and connections.
#include <algorithm>
#include <cctype>

#include "tests/drivers/Perform.h"

using namespace imptable::scripted;

namespace {

Environment& EnvironmentOf(SQLHENV raw) { return *static_cast<Environment*>(raw); }
Connection& ConnectionOf(SQLHDBC raw) { return *static_cast<Connection*>(raw); }

std::string DataSourceIn(const std::string& connection_string) {
  std::string upper = connection_string;
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  });
  const std::size_t at = upper.find("DSN=");
  if (at == std::string::npos) return {};
  const std::size_t start = at + 4;
  return connection_string.substr(start, connection_string.find(';', start) - start);
}

SQLRETURN Connect(Connection& connection, Call call, const std::string& data_source,
                  const std::string& arguments) {
  connection.diagnostics.Clear();
  try {
    connection.PlayDataSource(data_source);
  } catch (const ScriptFault& fault) {
    connection.diagnostics.Push({"S1000", 0, fault.what()});
    return SQL_ERROR;
  }
  return Perform(
      connection, call, {arguments}, [&] { return arguments; }, NoWork);
}

/// What a data source answers when its script says nothing about it.
Script::InfoAnswer UsualInfo(SQLUSMALLINT type, bool& known) {
  known = true;
  switch (type) {
    case SQL_IDENTIFIER_QUOTE_CHAR:
      return "\"";
    case SQL_MAX_COLUMN_NAME_LEN:
    case SQL_MAX_TABLE_NAME_LEN:
      return SQLUSMALLINT{128};
    case SQL_SEARCH_PATTERN_ESCAPE:
      return "\\";
    case SQL_DRIVER_ODBC_VER:
      return "02.50";
    case SQL_CURSOR_COMMIT_BEHAVIOR:
    case SQL_CURSOR_ROLLBACK_BEHAVIOR:
      return SQLUSMALLINT{SQL_CB_CLOSE};
    default:
      known = false;
      return "";
  }
}

SQLRETURN AnswerInfo(Connection& connection, SQLUSMALLINT type, SQLPOINTER value, SQLSMALLINT size,
                     SQLSMALLINT* length) {
  const Script& script = connection.playback->script();
  const auto scripted = script.info.find(type);
  bool known = true;
  const Script::InfoAnswer answer =
      scripted != script.info.end() ? scripted->second : UsualInfo(type, known);
  if (!known) {
    connection.diagnostics.Push({"S1096", 0, "Information type out of range"});
    return SQL_ERROR;
  }
  if (const auto* number = std::get_if<SQLUSMALLINT>(&answer)) {
    if (value != nullptr) *static_cast<SQLUSMALLINT*>(value) = *number;
    if (length != nullptr) *length = sizeof *number;
    return SQL_SUCCESS;
  }
  const SQLRETURN code =
      CopyText(std::get<std::string>(answer), static_cast<SQLCHAR*>(value), size, length);
  if (code != SQL_SUCCESS) connection.diagnostics.Push({"01004", 0, "Data truncated"});
  return code;
}

}  // namespace

SQLRETURN SQL_API SQLAllocEnv(SQLHENV* out) {
  Environment* environment = NewEnvironment();
  const SQLRETURN code = Perform(*environment, Call::kAllocEnv, {}, NoArguments, NoWork);
  *out = SQL_SUCCEEDED(code) ? environment : SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(code)) Release(environment);
  return code;
}

SQLRETURN SQL_API SQLFreeEnv(SQLHENV raw) {
  Environment& environment = EnvironmentOf(raw);
  const SQLRETURN code = Perform(environment, Call::kFreeEnv, {}, NoArguments, NoWork);
  if (code == SQL_SUCCESS) Release(&environment);
  return code;
}

SQLRETURN SQL_API SQLAllocConnect(SQLHENV raw, SQLHDBC* out) {
  Environment& environment = EnvironmentOf(raw);
  *out = SQL_NULL_HDBC;
  return Perform(environment, Call::kAllocConnect, {}, NoArguments, [&] {
    *out = NewConnection(environment);
    return SQL_SUCCESS;
  });
}

SQLRETURN SQL_API SQLFreeConnect(SQLHDBC raw) {
  Connection& connection = ConnectionOf(raw);
  const SQLRETURN code = Perform(connection, Call::kFreeConnect, {}, NoArguments, NoWork);
  if (code == SQL_SUCCESS) Release(&connection);
  return code;
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC raw, SQLHWND, SQLCHAR* in, SQLSMALLINT in_length,
                                   SQLCHAR* out, SQLSMALLINT out_size, SQLSMALLINT* out_length,
                                   SQLUSMALLINT) {
  const std::string text = TextArgument(in, in_length).value_or("");
  const SQLRETURN code = Connect(ConnectionOf(raw), Call::kDriverConnect, DataSourceIn(text), text);
  if (SQL_SUCCEEDED(code)) CopyText(text, out, out_size, out_length);
  return code;
}

SQLRETURN SQL_API SQLConnect(SQLHDBC raw, SQLCHAR* name, SQLSMALLINT name_length, SQLCHAR* user,
                             SQLSMALLINT user_length, SQLCHAR* password,
                             SQLSMALLINT password_length) {
  const std::string data_source = TextArgument(name, name_length).value_or("");
  return Connect(ConnectionOf(raw), Call::kConnect, data_source,
                 data_source + " user=" + Shown(TextArgument(user, user_length)) +
                     " password=" + Shown(TextArgument(password, password_length)));
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC raw) {
  return Perform(ConnectionOf(raw), Call::kDisconnect, {}, NoArguments, NoWork);
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC raw, SQLUSMALLINT type, SQLPOINTER value, SQLSMALLINT size,
                             SQLSMALLINT* length) {
  Connection& connection = ConnectionOf(raw);
  const std::string text = std::to_string(type);
  return Perform(
      connection, Call::kGetInfo, {text}, [&] { return text; },
      [&] { return AnswerInfo(connection, type, value, size, length); });
}

SQLRETURN SQL_API SQLGetFunctions(SQLHDBC raw, SQLUSMALLINT function, SQLUSMALLINT* supported) {
  const auto& support = ConnectionOf(raw).playback->script().support;
  const auto answer = [&support](SQLUSMALLINT number) -> SQLUSMALLINT {
    const auto found = support.find(number);
    return found == support.end() || found->second ? SQL_TRUE : SQL_FALSE;
  };
  if (function != SQL_API_ALL_FUNCTIONS) {
    *supported = answer(function);
    return SQL_SUCCESS;
  }
  for (SQLUSMALLINT number = 0; number < 100; ++number) supported[number] = answer(number);
  return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLTransact(SQLHENV environment, SQLHDBC connection, SQLUSMALLINT type) {
  Handle& handle = connection != SQL_NULL_HDBC ? static_cast<Handle&>(ConnectionOf(connection))
                                               : static_cast<Handle&>(EnvironmentOf(environment));
  const std::string text = type == SQL_COMMIT ? "COMMIT" : "ROLLBACK";
  return Perform(
      handle, Call::kTransact, {text}, [&] { return text; }, NoWork);
}

SQLRETURN SQL_API SQLSetConnectOption(SQLHDBC raw, SQLUSMALLINT option, SQLULEN value) {
  const std::string text = std::to_string(option);
  return Perform(
      ConnectionOf(raw), Call::kSetConnectOption, {text},
      [&] { return text + '=' + std::to_string(value); }, NoWork);
}

SQLRETURN SQL_API SQLGetConnectOption(SQLHDBC raw, SQLUSMALLINT option, SQLPOINTER value) {
  const std::string text = std::to_string(option);
  return Perform(
      ConnectionOf(raw), Call::kGetConnectOption, {text}, [&] { return text; },
      [&] {
        if (option != SQL_AUTOCOMMIT) {
          ConnectionOf(raw).diagnostics.Push({"S1092", 0, "Option type out of range"});
          return SQL_ERROR;
        }
        *static_cast<SQLUINTEGER*>(value) = SQL_AUTOCOMMIT_ON;
        return SQL_SUCCESS;
      });
}

SQLRETURN SQL_API SQLError(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                           SQLCHAR* state, SQLINTEGER* native, SQLCHAR* text, SQLSMALLINT size,
                           SQLSMALLINT* length) {
  DiagnosticQueue& queue = statement != SQL_NULL_HSTMT
                               ? static_cast<Statement*>(statement)->diagnostics
                           : connection != SQL_NULL_HDBC ? ConnectionOf(connection).diagnostics
                                                         : EnvironmentOf(environment).diagnostics;
  const Diagnostic* diagnostic = queue.Pop();
  if (diagnostic == nullptr) return SQL_NO_DATA_FOUND;
  if (state != nullptr) CopyText(diagnostic->state, state, SQL_SQLSTATE_SIZE + 1, nullptr);
  if (native != nullptr) *native = diagnostic->native;
  return CopyText(diagnostic->text, text, size, length);
}
