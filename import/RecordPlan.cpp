#include "import/RecordPlan.h"

namespace imptable {
namespace {

FieldPlan::Format FormatOf(const ColumnDefinition& column, bool explicit_separator) {
  switch (column.type) {
    case FileColumnType::kDate:
      return FieldPlan::Format::kDate;
    case FileColumnType::kInteger:
    case FileColumnType::kSingle:
    case FileColumnType::kDouble:
      if (explicit_separator) return FieldPlan::Format::kReplaceSeparator;
      return column.decimals > 0 ? FieldPlan::Format::kInsertSeparator : FieldPlan::Format::kAsIs;
    case FileColumnType::kText:
    case FileColumnType::kByte:
    case FileColumnType::kLong:
    case FileColumnType::kBoolean:
      return FieldPlan::Format::kAsIs;
  }
  return FieldPlan::Format::kAsIs;
}

/// The origin of every table column: by "Champs" in the order of its values when the task uses it
/// and it exists, else file column n for table column n. Columns past the last value have none,
/// which is null.
std::vector<ColumnOrigin> OriginsOf(const ModuleCommun& module, std::size_t column_count) {
  std::vector<ColumnOrigin> origins;
  if (module.run.parameter_option == 1) {
    const std::string path = module.run.task + "\\Champs";
    for (const std::string& name : module.ValueNames(path)) {
      if (origins.size() == column_count) break;
      origins.push_back(ParseColumnOrigin(AsText(module.ReadValue(path, name)), name));
    }
  }
  if (origins.empty()) {
    for (std::size_t n = 0; n < column_count; ++n) {
      origins.push_back({ColumnOrigin::Kind::kField, n, {}});
    }
  }
  origins.resize(column_count);
  return origins;
}

FieldPlan FieldPlanOf(const ColumnOrigin& origin, const std::vector<ColumnDefinition>& layout,
                      const RunState& run, const TableColumn& column,
                      const std::string& user_separator, ParameterBuffer& buffer) {
  FieldPlan field;
  field.field = origin.field;
  field.target = TargetOf(column.sql_type);
  field.separator = column.sql_type == kSqlSmallInt ? "." : user_separator;
  field.buffer = &buffer;
  if (origin.field < layout.size()) {
    const ColumnDefinition& definition = layout[origin.field];
    field.format = FormatOf(definition, run.separator_option == 1);
    field.date = definition.date;
    field.decimals = definition.decimals;
  }
  return field;
}

std::string FixedValue(const ModuleCommun& module, const ColumnOrigin& origin) {
  switch (origin.kind) {
    case ColumnOrigin::Kind::kConstant:
      return origin.text;
    case ColumnOrigin::Kind::kVariable:
      return module.host.Variable(module.location, module.run.scenario, origin.text);
    case ColumnOrigin::Kind::kNull:
    case ColumnOrigin::Kind::kField:
      return {};
  }
  return {};
}

}  // namespace

FieldPlan::Target TargetOf(std::int16_t sql_type) {
  if (sql_type == kSqlFloat) return FieldPlan::Target::kNumber;
  if (sql_type == kSqlDate || sql_type == kSqlTimestamp) return FieldPlan::Target::kDate;
  return FieldPlan::Target::kText;
}

bool StoreValue(std::string_view value, FieldPlan::Target target, const RecordPlan& plan,
                ParameterBuffer& buffer) {
  if (value.empty()) {
    buffer.SetNull();
    return true;
  }
  switch (target) {
    case FieldPlan::Target::kText:
      buffer.SetText(value, plan.utf8);
      return true;
    case FieldPlan::Target::kNumber: {
      const auto number = ReadUserNumber(value, plan.decimal_separator);
      if (number) buffer.SetNumber(*number);
      return number.has_value();
    }
    case FieldPlan::Target::kDate: {
      const auto date = ReadIsoDate(value);
      if (date) buffer.SetDate(*date);
      return date.has_value();
    }
  }
  return false;
}

RecordPlan CompileRecordPlan(const ModuleCommun& module, const OdbcSession& session,
                             const std::vector<TableColumn>& columns,
                             const std::vector<bool>& bound,
                             std::vector<ParameterBuffer>& buffers) {
  const RunState& run = module.run;
  RecordPlan plan;
  plan.delimited = run.delimited == 1;
  plan.utf8 = module.platform.encoding.IsUtf8();
  plan.blanks_are_null = run.null_option == 1;
  plan.delimiter = run.delimiter;
  plan.column_count = columns.size();
  plan.century = module.platform.clock.Now().year / 100;
  plan.decimal_separator = session.system_decimal_separator;
  const std::vector<ColumnDefinition> layout =
      ParseColumnLayout(run.column_layout, !plan.delimited);
  if (!plan.delimited) {
    for (const ColumnDefinition& column : layout) plan.widths.push_back(column.width);
  }
  const std::vector<ColumnOrigin> origins = OriginsOf(module, columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].ignored && !bound[i]) continue;
    if (origins[i].kind == ColumnOrigin::Kind::kField) {
      plan.fields.push_back(
          FieldPlanOf(origins[i], layout, run, columns[i], plan.decimal_separator, buffers[i]));
      continue;
    }
    std::string value = FixedValue(module, origins[i]);
    if (plan.blanks_are_null) value.erase(value.find_last_not_of(' ') + 1);
    plan.fixed_value_is_empty = value.empty();
    if (!StoreValue(value, TargetOf(columns[i].sql_type), plan, buffers[i])) {
      plan.unconvertible = true;
    }
  }
  return plan;
}

}  // namespace imptable
