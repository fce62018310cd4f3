#include "import/target/RecordPlan.h"

#include "core/Blanks.h"
#include "import/values/DateConversion.h"
#include "import/values/NumberConversion.h"

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

/// The origin of every table column. When the task uses "Champs" and has values there, the nth
/// value is for table column n, and columns past the last value get null. Else file column n is for
/// table column n.
std::vector<ColumnOrigin> OriginsOf(const RunState& run, std::size_t column_count) {
  std::vector<ColumnOrigin> origins;
  if (run.parameter_option == Flag::kOn) {
    for (const StoredAssignment& assignment : run.assignments) {
      if (origins.size() == column_count) break;
      origins.push_back(ParseColumnOrigin(assignment.value, assignment.name));
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
                      const RunState& run, const TargetColumn& column,
                      const std::string& user_separator, ParameterBuffer& buffer) {
  FieldPlan field;
  field.field = origin.field;
  field.target = TargetOf(column.sql_type);
  field.separator = column.sql_type == kSqlSmallInt ? "." : user_separator;
  field.is_key = column.is_key;
  field.buffer = &buffer;
  if (origin.field < layout.size()) {
    const ColumnDefinition& definition = layout[origin.field];
    field.format = FormatOf(definition, run.separator_option == Flag::kOn);
    field.date = definition.date;
    field.decimals = definition.decimals;
  }
  return field;
}

/// Whether this field is missing or empty in every line that is a record.
bool HasNoCharacters(const RecordPlan& plan, std::size_t field) {
  if (plan.delimited) return field >= plan.column_count;
  return field >= plan.widths.size() || plan.widths[field] == 0;
}

std::string FixedValue(const RunState& run, const ColumnOrigin& origin) {
  switch (origin.kind) {
    case ColumnOrigin::Kind::kConstant:
      return origin.text;
    case ColumnOrigin::Kind::kVariable:
      return run.variables.at(origin.text);
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

std::string_view StoredPart(std::string_view value, const RecordPlan& plan) {
  if (plan.blanks_are_null) value = WithoutTrailingBlanks(value);
  return value == kNullText ? std::string_view() : value;
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

RecordPlan CompileRecordPlan(const ModuleCommun& module, const std::vector<TargetColumn>& columns,
                             std::vector<ParameterBuffer>& buffers) {
  const RunState& run = module.run;
  RecordPlan plan;
  plan.delimited = run.file_format == FileFormat::kDelimited;
  plan.utf8 = module.platform.encoding.IsUtf8();
  plan.blanks_are_null = run.null_option == Flag::kOn;
  plan.delimiter = run.delimiter;
  plan.column_count = columns.size();
  plan.century = module.platform.clock.Now().year / 100;
  plan.decimal_separator = run.decimal_separator;
  const std::vector<ColumnDefinition> layout =
      ParseColumnLayout(run.column_layout, !plan.delimited);
  if (!plan.delimited) {
    for (const ColumnDefinition& column : layout) plan.widths.push_back(column.width);
  }
  const std::vector<ColumnOrigin> origins = OriginsOf(run, columns.size());
  plan.always_null.assign(columns.size(), false);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].ignored && !columns[i].bound) continue;
    if (origins[i].kind == ColumnOrigin::Kind::kField) {
      plan.fields.push_back(
          FieldPlanOf(origins[i], layout, run, columns[i], plan.decimal_separator, buffers[i]));
      plan.always_null[i] = HasNoCharacters(plan, origins[i].field);
      continue;
    }
    const std::string fixed = FixedValue(run, origins[i]);
    const std::string_view value = StoredPart(fixed, plan);
    plan.fixed_value_is_empty = value.empty();
    plan.always_null[i] = value.empty();
    if (!StoreValue(value, TargetOf(columns[i].sql_type), plan, buffers[i])) {
      plan.unconvertible = true;
    }
  }
  return plan;
}

}  // namespace imptable
