#include "import/target/TargetTable.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

/// @param column  the column that gets no value; empty when no column gets one.
RuntimeFault NoValueFault(const std::string& column) {
  std::string names = "\"Champs\", \"NombreColonnes\"";
  if (!column.empty()) names += ", \"" + column + '"';
  return RuntimeFault(FaultNumber::kInvalidArgument, names, FaultRemedy::kGiveColumns);
}

/// A fixed-width line has as many fields as the layout. When these are too many, every line would
/// be refused.
RuntimeFault TooManyColumnsFault(std::size_t count) {
  return RuntimeFault(FaultNumber::kIndexOutOfRange,
                      "\"NombreColonnes\" = \"" + std::to_string(count) + '"');
}

}  // namespace

TableName TableOf(const OpenedTask& task) { return {task.owner, task.table}; }

bool HoldsBytes(std::int16_t sql_type) {
  return sql_type == SQL_BINARY || sql_type == SQL_VARBINARY || sql_type == SQL_LONGVARBINARY;
}

bool IsBitString(const TableColumn& column) {
  return column.type_name == "BIT" && column.sql_type != SQL_BIT;
}

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

bool TargetTable::LoadColumns(Catalogue& catalogue) {
  std::vector<TableColumn> found;
  const bool loaded = catalogue.GetTableColumns(found);
  columns_.clear();
  for (TableColumn& column : found) {
    if (session_.dialect->bits_are_numbers && IsBitString(column)) column.sql_type = kSqlFloat;
    TargetColumn target{std::move(column)};
    const std::string number = std::to_string(columns_.size() + 1);
    for (const StoredAssignment& assignment : module_.run.assignments) {
      if (assignment.name == number) target.ignored = assignment.value.ends_with(kIgnoreMark);
    }
    columns_.push_back(std::move(target));
  }
  return loaded;
}

bool TargetTable::LeaveOutVersions(Catalogue& catalogue) {
  std::vector<std::string> versions;
  const bool loaded = catalogue.GetSpecialColumns(versions);
  for (const std::string& name : versions) {
    const auto column = std::find_if(columns_.begin(), columns_.end(),
                                     [&](const TargetColumn& each) { return each.name == name; });
    if (column != columns_.end()) column->ignored = true;
  }
  return loaded;
}

bool TargetTable::Load(bool with_special_columns) {
  name_ = TableOf(module_.run);
  Catalogue catalogue(session_, name_);
  bool loaded = LoadColumns(catalogue);
  if (loaded && with_special_columns) loaded = LeaveOutVersions(catalogue);
  buffers_ = std::vector<ParameterBuffer>(columns_.size());
  return loaded;
}

SQLRETURN TargetTable::Bind(SQLHSTMT statement, SQLUSMALLINT number, std::size_t column) {
  columns_[column].bound = true;
  TableColumn sent = columns_[column];
  if (session_.dialect->binds_bytes_as_text && HoldsBytes(sent.sql_type)) {
    sent.sql_type = kSqlVarchar;
  }
  return BindParameter(statement, number, sent, buffers_[column]);
}

SQLRETURN TargetTable::BindKey(SQLHSTMT statement, SQLUSMALLINT number, std::size_t column) {
  columns_[column].is_key = true;
  return Bind(statement, number, column);
}

RecordPlan TargetTable::MakePlan() {
  RecordPlan plan = CompileRecordPlan(module_, columns_, buffers_);
  if (!plan.delimited && plan.widths.size() > plan.column_count) {
    throw TooManyColumnsFault(plan.widths.size());
  }
  return plan;
}

RecordParser TargetTable::MakeParser() {
  RecordPlan plan = MakePlan();
  bool any_value = false;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    any_value = any_value || (columns_[i].bound && !plan.always_null[i]);
  }
  if (!any_value) throw NoValueFault({});
  return RecordParser(std::move(plan));
}

RecordParser TargetTable::MakeKeyedParser() {
  RecordPlan plan = MakePlan();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].is_key && plan.always_null[i]) throw NoValueFault(columns_[i].name);
  }
  return RecordParser(std::move(plan));
}

std::string TargetTable::InsertText() const {
  std::string names;
  std::string marks;
  for (const TargetColumn& column : columns_) {
    if (column.ignored) continue;
    if (!names.empty()) names += ',';
    names += QuoteIdentifier(session_, column.name);
    marks += marks.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + TableReference(session_, name_) + " (" + names + ") VALUES (" + marks +
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
  if (!ready) session_.ReportOdbcError(statement);
  return ready;
}

}  // namespace imptable
