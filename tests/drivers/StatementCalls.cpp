// Entry points on statements, except those for the catalogue.
#include <algorithm>

#include "tests/drivers/Perform.h"

using namespace imptable::scripted;

namespace {

Statement& StatementOf(SQLHSTMT raw) { return *static_cast<Statement*>(raw); }

SQLRETURN Execute(Statement& statement) {
  statement.result = {};
  if (!statement.playback->script().row_counts.empty()) {
    statement.row_count =
        statement.playback->ExecutionRowCount({statement.text, &statement.parameters});
  }
  return SQL_SUCCESS;
}

std::string OptionName(SQLUSMALLINT option) {
  switch (option) {
    case SQL_CLOSE:
      return "CLOSE";
    case SQL_DROP:
      return "DROP";
    case SQL_UNBIND:
      return "UNBIND";
    case SQL_RESET_PARAMS:
      return "RESET_PARAMS";
    default:
      return std::to_string(option);
  }
}

void Forget(Statement& statement, SQLUSMALLINT option) {
  if (option == SQL_CLOSE) statement.result = {};
  if (option == SQL_UNBIND) statement.columns.clear();
  if (option == SQL_RESET_PARAMS) statement.parameters.clear();
}

}  // namespace

SQLRETURN SQL_API SQLAllocStmt(SQLHDBC raw, SQLHSTMT* out) {
  Connection& connection = *static_cast<Connection*>(raw);
  *out = SQL_NULL_HSTMT;
  return Perform(connection, Call::kAllocStmt, {}, NoArguments, [&] {
    *out = NewStatement(connection);
    return SQL_SUCCESS;
  });
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT raw, SQLUSMALLINT option) {
  Statement& statement = StatementOf(raw);
  const std::string text = OptionName(option);
  const SQLRETURN code = Perform(
      statement, Call::kFreeStmt, {text}, [&] { return text; },
      [&] {
        Forget(statement, option);
        return SQL_SUCCESS;
      });
  if (code == SQL_SUCCESS && option == SQL_DROP) Release(&statement);
  return code;
}

SQLRETURN SQL_API SQLPrepare(SQLHSTMT raw, SQLCHAR* text, SQLINTEGER length) {
  Statement& statement = StatementOf(raw);
  const std::string sql = TextArgument(text, length).value_or("");
  return Perform(
      statement, Call::kPrepare, {sql, &statement.parameters}, [&] { return sql; },
      [&] {
        statement.text = sql;
        statement.result = {};
        return SQL_SUCCESS;
      });
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT raw, SQLUSMALLINT number, SQLSMALLINT direction,
                                   SQLSMALLINT c_type, SQLSMALLINT sql_type, SQLULEN size,
                                   SQLSMALLINT digits, SQLPOINTER value, SQLLEN buffer_length,
                                   SQLLEN* indicator) {
  Statement& statement = StatementOf(raw);
  const std::string text = std::to_string(number);
  return Perform(
      statement, Call::kBindParameter, {text},
      [&] {
        return text + " io=" + std::to_string(direction) + " ctype=" + std::to_string(c_type) +
               " sqltype=" + std::to_string(sql_type) + " size=" + std::to_string(size) +
               " digits=" + std::to_string(digits) + " buflen=" + std::to_string(buffer_length);
      },
      [&] {
        if (number == 0) {
          statement.diagnostics.Push({"S1093", 0, "Invalid parameter number"});
          return SQL_ERROR;
        }
        if (statement.parameters.size() < number) statement.parameters.resize(number);
        statement.parameters[number - 1u] = {true, c_type, value, indicator};
        return SQL_SUCCESS;
      });
}

SQLRETURN SQL_API SQLExecute(SQLHSTMT raw) {
  Statement& statement = StatementOf(raw);
  return Perform(
      statement, Call::kExecute, {statement.text, &statement.parameters},
      [&] { return Describe(statement.parameters); }, [&] { return Execute(statement); });
}

SQLRETURN SQL_API SQLExecDirect(SQLHSTMT raw, SQLCHAR* text, SQLINTEGER length) {
  Statement& statement = StatementOf(raw);
  const std::string sql = TextArgument(text, length).value_or("");
  return Perform(
      statement, Call::kExecDirect, {sql, &statement.parameters},
      [&] {
        const std::string values = Describe(statement.parameters);
        return values.empty() ? sql : sql + ' ' + values;
      },
      [&] {
        statement.text = sql;
        return Execute(statement);
      });
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT raw, SQLLEN* count) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kRowCount, {statement.text}, NoArguments, [&] {
    *count = statement.playback->RowCount(statement.row_count);
    return SQL_SUCCESS;
  });
}

SQLRETURN SQL_API SQLNumParams(SQLHSTMT raw, SQLSMALLINT* count) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kNumParams, {statement.text}, NoArguments, [&] {
    *count =
        static_cast<SQLSMALLINT>(std::count(statement.text.begin(), statement.text.end(), '?'));
    return SQL_SUCCESS;
  });
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT raw, SQLSMALLINT* count) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kNumResultCols, {statement.text}, NoArguments, [&] {
    *count = static_cast<SQLSMALLINT>(statement.result.columns.size());
    return SQL_SUCCESS;
  });
}

SQLRETURN SQL_API SQLDescribeCol(SQLHSTMT raw, SQLUSMALLINT number, SQLCHAR* name, SQLSMALLINT size,
                                 SQLSMALLINT* length, SQLSMALLINT* sql_type, SQLULEN* precision,
                                 SQLSMALLINT* scale, SQLSMALLINT* nullable) {
  Statement& statement = StatementOf(raw);
  const std::string text = std::to_string(number);
  return Perform(
      statement, Call::kDescribeCol, {text}, [&] { return text; },
      [&]() -> SQLRETURN {
        const auto& columns = statement.result.columns;
        if (number == 0 || number > columns.size()) {
          statement.diagnostics.Push({"S1002", 0, "Invalid column number"});
          return SQL_ERROR;
        }
        const ResultColumn& column = columns[number - 1u];
        if (sql_type != nullptr) *sql_type = column.sql_type;
        if (precision != nullptr) *precision = column.size;
        if (scale != nullptr) *scale = 0;
        if (nullable != nullptr) *nullable = SQL_NULLABLE;
        const SQLRETURN code = CopyText(column.name, name, size, length);
        if (code != SQL_SUCCESS) statement.diagnostics.Push({"01004", 0, "Data truncated"});
        return code;
      });
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT raw, SQLUSMALLINT number, SQLSMALLINT c_type,
                             SQLPOINTER target, SQLLEN size, SQLLEN* indicator) {
  Statement& statement = StatementOf(raw);
  const std::string text = std::to_string(number);
  return Perform(
      statement, Call::kBindCol, {text},
      [&] { return text + " ctype=" + std::to_string(c_type) + " buflen=" + std::to_string(size); },
      [&] {
        if (number == 0) {
          statement.diagnostics.Push({"S1002", 0, "Invalid column number"});
          return SQL_ERROR;
        }
        if (statement.columns.size() < number) statement.columns.resize(number);
        statement.columns[number - 1u] = {c_type, target, size, indicator};
        return SQL_SUCCESS;
      });
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT raw) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kFetch, {statement.text}, NoArguments, [&] {
    return FetchRow(statement.result, statement.columns, statement.diagnostics);
  });
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT raw) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kMoreResults, {statement.text}, NoArguments, [&] {
    statement.result = {};
    return SQL_NO_DATA_FOUND;
  });
}

SQLRETURN SQL_API SQLCancel(SQLHSTMT raw) {
  Statement& statement = StatementOf(raw);
  return Perform(statement, Call::kCancel, {statement.text}, NoArguments, NoWork);
}

SQLRETURN SQL_API SQLSetStmtOption(SQLHSTMT raw, SQLUSMALLINT option, SQLULEN value) {
  const std::string text = std::to_string(option);
  return Perform(
      StatementOf(raw), Call::kSetStmtOption, {text},
      [&] { return text + '=' + std::to_string(value); }, NoWork);
}

SQLRETURN SQL_API SQLGetStmtOption(SQLHSTMT raw, SQLUSMALLINT option, SQLPOINTER) {
  Statement& statement = StatementOf(raw);
  const std::string text = std::to_string(option);
  return Perform(
      statement, Call::kGetStmtOption, {text}, [&] { return text; },
      [&] {
        statement.diagnostics.Push({"S1092", 0, "Option type out of range"});
        return SQL_ERROR;
      });
}
