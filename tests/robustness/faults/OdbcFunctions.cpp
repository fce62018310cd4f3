// Stands in for the driver manager's functions that a run calls. In this program these come before
// the real ones.
#include <string>

#include "tests/kit/ManagerFunction.h"
#include "tests/robustness/faults/OdbcCalls.h"

namespace imptable {
namespace {

std::string TextOf(const SQLCHAR* text, SQLINTEGER length) {
  const char* const start = reinterpret_cast<const char*>(text);
  return length < 0 ? std::string(start) : std::string(start, static_cast<std::size_t>(length));
}

/// One call of one function.
/// @param handle  whose diagnostics the call replaces.
/// @param about  text for the figures.
/// @param done  takes the driver manager's answer and gives the final one.
template <typename Function, typename Done, typename... Arguments>
SQLRETURN Call(Operation operation, SQLHANDLE handle, const std::string& about, Function* own,
               Done done, Arguments... arguments) {
  static_assert(std::is_same_v<SQLRETURN, decltype(own(arguments...))>);
  const auto real =
      reinterpret_cast<Function*>(ManagerFunction(std::string(NameOf(operation)).c_str()));
  OdbcCalls* const calls = OdbcCalls::current();
  if (calls == nullptr) return real(arguments...);
  calls->Forget(handle);
  const auto effect = calls->plan().Next(operation, about);
  const auto diagnose = [&](const char* state) {
    calls->Diagnose(handle, {state, 4711, "fault in " + std::string(NameOf(operation))});
  };
  if (effect == Effect::kInvalidHandle) return SQL_INVALID_HANDLE;
  if (effect == Effect::kFails) {
    diagnose("HY000");
    return SQL_ERROR;
  }
  const SQLRETURN code = done(*calls, real(arguments...));
  if (!effect) return code;
  if (code != SQL_SUCCESS) {
    calls->plan().TakeBack();
    return code;
  }
  diagnose(effect == Effect::kInformation ? "01000" : "08S01");
  return effect == Effect::kInformation ? SQL_SUCCESS_WITH_INFO : SQL_ERROR;
}

/// Leaves the driver manager's answer as it is.
SQLRETURN AsAnswered(OdbcCalls&, SQLRETURN code) { return code; }

auto Allocating(OdbcCalls::Kind kind, SQLHANDLE* handle) {
  return [kind, handle](OdbcCalls& calls, SQLRETURN code) {
    if (Succeeded(code)) calls.Allocated(kind, *handle);
    return code;
  };
}

auto Freeing(SQLHANDLE handle) {
  return [handle](OdbcCalls& calls, SQLRETURN code) {
    if (Succeeded(code)) calls.Freed(handle);
    return code;
  };
}

}  // namespace
}  // namespace imptable

using namespace imptable;

SQLRETURN SQL_API SQLAllocEnv(SQLHENV* environment) {
  return Call(Operation::kAllocEnv, SQL_NULL_HENV, "", &SQLAllocEnv,
              Allocating(OdbcCalls::Kind::kEnvironment, environment), environment);
}

SQLRETURN SQL_API SQLAllocConnect(SQLHENV environment, SQLHDBC* connection) {
  return Call(Operation::kAllocConnect, environment, "", &SQLAllocConnect,
              Allocating(OdbcCalls::Kind::kConnection, connection), environment, connection);
}

SQLRETURN SQL_API SQLAllocStmt(SQLHDBC connection, SQLHSTMT* statement) {
  return Call(Operation::kAllocStmt, connection, "", &SQLAllocStmt,
              Allocating(OdbcCalls::Kind::kStatement, statement), connection, statement);
}

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC connection, SQLHWND window, SQLCHAR* in,
                                   SQLSMALLINT in_length, SQLCHAR* out, SQLSMALLINT out_size,
                                   SQLSMALLINT* out_length, SQLUSMALLINT completion) {
  return Call(
      Operation::kDriverConnect, connection, "", &SQLDriverConnect,
      [](OdbcCalls& calls, SQLRETURN code) {
        if (Succeeded(code)) ++calls.connections_made;
        return code;
      },
      connection, window, in, in_length, out, out_size, out_length, completion);
}

SQLRETURN SQL_API SQLSetConnectOption(SQLHDBC connection, SQLUSMALLINT option, SQLULEN value) {
  return Call(Operation::kSetConnectOption, connection, std::to_string(option),
              &SQLSetConnectOption, AsAnswered, connection, option, value);
}

SQLRETURN SQL_API SQLGetInfo(SQLHDBC connection, SQLUSMALLINT type, SQLPOINTER value,
                             SQLSMALLINT size, SQLSMALLINT* length) {
  return Call(Operation::kGetInfo, connection, std::to_string(type), &SQLGetInfo, AsAnswered,
              connection, type, value, size, length);
}

SQLRETURN SQL_API SQLGetFunctions(SQLHDBC connection, SQLUSMALLINT function,
                                  SQLUSMALLINT* supported) {
  return Call(Operation::kGetFunctions, connection, std::to_string(function), &SQLGetFunctions,
              AsAnswered, connection, function, supported);
}

SQLRETURN SQL_API SQLColumns(SQLHSTMT statement, SQLCHAR* catalogue, SQLSMALLINT catalogue_length,
                             SQLCHAR* owner, SQLSMALLINT owner_length, SQLCHAR* table,
                             SQLSMALLINT table_length, SQLCHAR* column, SQLSMALLINT column_length) {
  return Call(Operation::kColumns, statement, "", &SQLColumns, AsAnswered, statement, catalogue,
              catalogue_length, owner, owner_length, table, table_length, column, column_length);
}

SQLRETURN SQL_API SQLSpecialColumns(SQLHSTMT statement, SQLUSMALLINT type, SQLCHAR* catalogue,
                                    SQLSMALLINT catalogue_length, SQLCHAR* owner,
                                    SQLSMALLINT owner_length, SQLCHAR* table,
                                    SQLSMALLINT table_length, SQLUSMALLINT scope,
                                    SQLUSMALLINT nullable) {
  return Call(Operation::kSpecialColumns, statement, "", &SQLSpecialColumns, AsAnswered, statement,
              type, catalogue, catalogue_length, owner, owner_length, table, table_length, scope,
              nullable);
}

SQLRETURN SQL_API SQLPrimaryKeys(SQLHSTMT statement, SQLCHAR* catalogue,
                                 SQLSMALLINT catalogue_length, SQLCHAR* owner,
                                 SQLSMALLINT owner_length, SQLCHAR* table,
                                 SQLSMALLINT table_length) {
  return Call(Operation::kPrimaryKeys, statement, "", &SQLPrimaryKeys, AsAnswered, statement,
              catalogue, catalogue_length, owner, owner_length, table, table_length);
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT c_type,
                             SQLPOINTER target, SQLLEN size, SQLLEN* indicator) {
  return Call(Operation::kBindCol, statement, std::to_string(number), &SQLBindCol, AsAnswered,
              statement, number, c_type, target, size, indicator);
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT statement) {
  return Call(Operation::kFetch, statement, "", &SQLFetch, AsAnswered, statement);
}

SQLRETURN SQL_API SQLPrepare(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length) {
  return Call(
      Operation::kPrepare, statement, TextOf(text, length), &SQLPrepare,
      [&](OdbcCalls& calls, SQLRETURN code) {
        if (Succeeded(code)) calls.Prepared(statement, TextOf(text, length));
        return code;
      },
      statement, text, length);
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT direction,
                                   SQLSMALLINT c_type, SQLSMALLINT sql_type, SQLULEN size,
                                   SQLSMALLINT digits, SQLPOINTER value, SQLLEN buffer_length,
                                   SQLLEN* indicator) {
  return Call(
      Operation::kBindParameter, statement, std::to_string(number), &SQLBindParameter,
      [&](OdbcCalls& calls, SQLRETURN code) {
        if (Succeeded(code)) calls.Bound(statement, number, value, indicator);
        return code;
      },
      statement, number, direction, c_type, sql_type, size, digits, value, buffer_length,
      indicator);
}

SQLRETURN SQL_API SQLExecute(SQLHSTMT statement) {
  if (OdbcCalls* const calls = OdbcCalls::current()) calls->plan().phase = Phase::kReading;
  return Call(
      Operation::kExecute, statement, "", &SQLExecute,
      [&](OdbcCalls& calls, SQLRETURN code) {
        return Succeeded(code) ? calls.Executed(statement, std::nullopt) : code;
      },
      statement);
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT statement, SQLCHAR* text, SQLINTEGER length) {
  return Call(
      Operation::kExecDirect, statement, TextOf(text, length), &SQLExecDirect,
      [&](OdbcCalls& calls, SQLRETURN code) {
        return Succeeded(code) ? calls.Executed(statement, TextOf(text, length)) : code;
      },
      statement, text, length);
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT statement, SQLLEN* count) {
  return Call(
      Operation::kRowCount, statement, "", &SQLRowCount,
      [&](OdbcCalls& calls, SQLRETURN code) {
        if (Succeeded(code)) *count = calls.RowCount(statement);
        return code;
      },
      statement, count);
}

SQLRETURN SQL_API SQLError(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                           SQLCHAR* state, SQLINTEGER* native, SQLCHAR* text, SQLSMALLINT size,
                           SQLSMALLINT* length) {
  const auto real = reinterpret_cast<decltype(&SQLError)>(ManagerFunction("SQLError"));
  OdbcCalls* const calls = OdbcCalls::current();
  if (calls == nullptr) {
    return real(environment, connection, statement, state, native, text, size, length);
  }
  const SQLHANDLE handle = statement != SQL_NULL_HSTMT   ? statement
                           : connection != SQL_NULL_HDBC ? connection
                                                         : environment;
  const auto diagnostic = calls->TakeDiagnostic(handle);
  const auto effect = calls->plan().Next(Operation::kError, "");
  if (effect == Effect::kFails) return SQL_ERROR;
  if (effect == Effect::kInvalidHandle) return SQL_INVALID_HANDLE;
  if (!diagnostic) {
    if (effect) calls->plan().TakeBack();
    return real(environment, connection, statement, state, native, text, size, length);
  }
  *native = diagnostic->native;
  *length = static_cast<SQLSMALLINT>(diagnostic->text.size());
  text[diagnostic->text.copy(reinterpret_cast<char*>(text), static_cast<std::size_t>(size) - 1)] =
      '\0';
  return effect ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT statement, SQLUSMALLINT option) {
  return Call(Operation::kFreeStmt, statement, std::to_string(option), &SQLFreeStmt,
              Freeing(statement), statement, option);
}

SQLRETURN SQL_API SQLDisconnect(SQLHDBC connection) {
  if (OdbcCalls* const calls = OdbcCalls::current()) {
    calls->plan().phase = Phase::kDisconnecting;
    ++calls->disconnects_tried;
  }
  return Call(
      Operation::kDisconnect, connection, "", &SQLDisconnect,
      [](OdbcCalls& calls, SQLRETURN code) {
        if (Succeeded(code)) calls.Disconnected();
        return code;
      },
      connection);
}

SQLRETURN SQL_API SQLFreeConnect(SQLHDBC connection) {
  return Call(Operation::kFreeConnect, connection, "", &SQLFreeConnect, Freeing(connection),
              connection);
}

SQLRETURN SQL_API SQLFreeEnv(SQLHENV environment) {
  return Call(Operation::kFreeEnv, environment, "", &SQLFreeEnv, Freeing(environment), environment);
}
