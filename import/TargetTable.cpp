#include "import/TargetTable.h"

namespace imptable {

SQLRETURN BindParameter(SQLHSTMT statement, SQLUSMALLINT number, const TableColumn& column,
                        ParameterBuffer& buffer) {
  const auto bind = [&](SQLSMALLINT c_type, SQLULEN size, SQLSMALLINT digits, void* value,
                        SQLLEN length, SQLLEN* indicator) {
    return SQLBindParameter(statement, number, SQL_PARAM_INPUT, c_type, column.sql_type, size,
                            digits, value, length, indicator);
  };
  const auto precision = static_cast<SQLULEN>(column.precision);
  switch (column.sql_type) {
    case kSqlFloat:
      return bind(SQL_C_DOUBLE, precision, column.scale, &buffer.number, 0,
                  &buffer.number_indicator);
    case kSqlDate:
      return bind(SQL_C_DATE, 0, 0, &buffer.date, 0, &buffer.date_indicator);
    case kSqlTimestamp:
      return bind(SQL_C_TIMESTAMP, 0, 0, &buffer.date, 0, &buffer.date_indicator);
    default:
      return bind(SQL_C_CHAR, precision, column.scale, buffer.text.data(), kParameterTextBytes,
                  &buffer.text_indicator);
  }
}

bool TargetTable::Load(bool with_special_columns) {
  Catalogue catalogue(module_, session_);
  columns_.clear();
  bool found = false;
  const bool loaded = catalogue.GetTableColumns(columns_) &&
                      (!with_special_columns || catalogue.GetSpecialColumns(columns_, found));
  buffers_ = std::vector<ParameterBuffer>(columns_.size());
  bound_.assign(columns_.size(), false);
  return loaded;
}

SQLRETURN TargetTable::Bind(SQLHSTMT statement, SQLUSMALLINT number, std::size_t column) {
  bound_[column] = true;
  return BindParameter(statement, number, columns_[column], buffers_[column]);
}

RecordParser TargetTable::MakeParser() {
  return RecordParser(CompileRecordPlan(module_, session_, columns_, bound_, buffers_));
}

std::string TargetTable::InsertText() const {
  std::string names;
  std::string marks;
  for (const TableColumn& column : columns_) {
    if (column.ignored) continue;
    if (!names.empty()) names += ',';
    names += QuoteIdentifier(session_, column.name);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + TableReference(module_, session_) + " (" + names + ") VALUES (" + marks +
         ")";
}

bool TargetTable::PrepareInsert(SQLHSTMT statement, bool information_fails) {
  const std::string text = InsertText();
  const SQLRETURN code = SQLPrepare(statement, SqlText(text), static_cast<SQLINTEGER>(text.size()));
  bool ready = information_fails ? code == SQL_SUCCESS : Succeeded(code);
  SQLUSMALLINT number = 0;
  for (std::size_t i = 0; ready && i < columns_.size(); ++i) {
    if (columns_[i].ignored) continue;
    ready = Bind(statement, ++number, i) == SQL_SUCCESS;
  }
  if (!ready) session_.ReportError(statement);
  return ready;
}

}  // namespace imptable
