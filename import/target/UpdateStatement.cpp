#include "import/target/UpdateStatement.h"

namespace imptable {
namespace {

/// The type name of columns that the database fills with a counter.
constexpr std::string_view kCounterType = "COUNTER";

bool IsSet(const TargetColumn& column) {
  return !column.ignored && column.type_name != kCounterType;
}

}  // namespace

std::string UpdateStatement::Text(const std::vector<std::string>& keys) const {
  std::string assignments;
  for (const TargetColumn& column : table_.columns()) {
    if (!IsSet(column)) continue;
    if (!assignments.empty()) assignments += ", ";
    assignments += QuoteIdentifier(session_, column.name) + " = ?";
  }
  return "UPDATE " + TableReference(session_, table_.name()) + " SET " + assignments + " WHERE " +
         KeyCondition(session_, keys);
}

bool UpdateStatement::Prepare(const std::vector<std::string>& keys) {
  if (statement_.Allocate(session_.connection) != SQL_SUCCESS) {
    session_.ReportOdbcError();
    return false;
  }
  const SQLHSTMT raw = statement_.raw();
  const std::string text = Text(keys);
  SQLRETURN code = SQLPrepare(raw, SqlText(text), static_cast<SQLINTEGER>(text.size()));
  SQLUSMALLINT number = 1;
  for (std::size_t i = 0; code == SQL_SUCCESS && i < table_.columns().size(); ++i) {
    if (IsSet(table_.columns()[i])) code = table_.Bind(raw, number++, i);
  }
  if (code == SQL_SUCCESS) code = BindKeys(table_, raw, number, keys);
  if (code == SQL_SUCCESS) return true;
  session_.ReportOdbcError(raw);
  return false;
}

}  // namespace imptable
