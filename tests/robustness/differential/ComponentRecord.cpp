#include "tests/robustness/differential/ComponentRecord.h"

#include <optional>
#include <stdexcept>
#include <string>

#include "core/RuntimeFault.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {
namespace {

void Demand(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

void SetUp(TestComponent& component, const rules::Task& task) {
  ModuleCommun& module = component.module();
  module.run.file_format = task.delimited ? FileFormat::kDelimited : FileFormat::kFixedWidth;
  module.run.delimiter = task.delimiter;
  module.run.separator_option = task.explicit_separator ? Flag::kOn : Flag::kOff;
  module.run.null_option = task.blanks_are_null ? Flag::kOn : Flag::kOff;
  module.run.parameter_option = task.assigned ? Flag::kOn : Flag::kOff;
  module.run.column_layout = task.layout;
  component.module().run.decimal_separator = task.user_separator;
  component.clock.Set({task.year, 11, 15, 8, 30, 0});
  module.run.assignments.clear();
  module.run.variables.clear();
  for (const std::string& value : task.assignment) {
    module.run.assignments.push_back({std::to_string(module.run.assignments.size() + 1), value});
    const std::optional<std::string> variable = VariableOfOrigin(value);
    if (!variable) continue;
    const auto set = task.variables.find(*variable);
    module.run.variables[*variable] = set == task.variables.end() ? "" : set->second;
  }
}

rules::Value ValueOf(const ParameterBuffer& buffer, std::int16_t sql_type) {
  rules::Value value;
  switch (TargetOf(sql_type)) {
    case FieldPlan::Target::kText:
      Demand(buffer.text_indicator == SQL_NULL_DATA ||
                 (buffer.text_indicator > 0 &&
                  buffer.text_indicator <= static_cast<SQLLEN>(buffer.text.size())),
             "a text's indicator is its length in the buffer, or null");
      if (buffer.text_indicator == SQL_NULL_DATA) break;
      value.kind = rules::Value::Kind::kText;
      value.text.assign(buffer.text.data(), static_cast<std::size_t>(buffer.text_indicator));
      break;
    case FieldPlan::Target::kNumber:
      Demand(buffer.number_indicator == SQL_NULL_DATA || buffer.number_indicator == 0,
             "a number's indicator is zero or null");
      if (buffer.number_indicator == SQL_NULL_DATA) break;
      value.kind = rules::Value::Kind::kNumber;
      value.number = buffer.number;
      break;
    case FieldPlan::Target::kDate:
      Demand(buffer.date_indicator == SQL_NULL_DATA || buffer.date_indicator == 0,
             "a date's indicator is zero or null");
      if (buffer.date_indicator == SQL_NULL_DATA) break;
      value.kind = rules::Value::Kind::kDate;
      value.date = {buffer.date.year,
                    buffer.date.month,
                    buffer.date.day,
                    buffer.date.hour,
                    buffer.date.minute,
                    buffer.date.second,
                    static_cast<int>(buffer.date.fraction)};
      break;
  }
  return value;
}

}  // namespace

ComponentRecord::ComponentRecord(TestComponent& component, const rules::Task& task)
    : buffers_(task.columns.size()) {
  SetUp(component, task);
  for (const rules::Column& column : task.columns) {
    TargetColumn target;
    target.name = "C";
    target.sql_type = column.sql_type;
    target.ignored = column.ignored;
    target.bound = !column.ignored;
    columns_.push_back(std::move(target));
  }
  try {
    parser_.emplace(CompileRecordPlan(component.module(), columns_, buffers_));
  } catch (const RuntimeFault&) {
    // The task is refused: no parser.
  }
}

rules::Record ComponentRecord::Parse(std::string_view line) {
  using Result = rules::Record::Result;
  if (!parser_) return {Result::kRefusedTask, {}};
  switch (parser_->ParseRecord(line)) {
    case ParseResult::kFailed:
      return {Result::kFailed, {}};
    case ParseResult::kEmpty:
      return {Result::kEmpty, {}};
    case ParseResult::kRecord:
      break;
  }
  rules::Record record{Result::kRecord, {}};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    record.values.emplace_back();
    if (columns_[i].ignored) continue;
    record.values.back() = ValueOf(buffers_[i], columns_[i].sql_type);
  }
  return record;
}

}  // namespace imptable
