#include "import/target/RecordParser.h"

#include <algorithm>
#include <utility>

#include "core/Blanks.h"
#include "import/source/FieldSplitting.h"
#include "import/values/DateConversion.h"
#include "import/values/NumberConversion.h"

namespace imptable {
RecordParser::RecordParser(RecordPlan plan) : plan_(std::move(plan)) {
  delimiter_step_ = DelimiterStep(plan_.delimiter, plan_.utf8);
  fields_.reserve(std::max(plan_.column_count + 1, plan_.widths.size()));
}

ParseResult RecordParser::ParseRecord(std::string_view line) {
  if (plan_.delimited) {
    SplitDelimited(line, plan_.delimiter, delimiter_step_, plan_.column_count + 1, fields_);
  } else {
    SplitFixedWidth(line, plan_.widths, plan_.utf8, fields_);
  }
  if (fields_.size() > plan_.column_count || plan_.unconvertible) return ParseResult::kFailed;
  bool empty = plan_.fixed_value_is_empty;
  for (const FieldPlan& field : plan_.fields) {
    const std::string_view value =
        field.field < fields_.size() ? fields_[field.field] : std::string_view();
    if (!FillColumn(field, value, empty)) return ParseResult::kFailed;
  }
  // A record of several columns is never empty: the "," that joins their values counts.
  return plan_.column_count == 1 && empty ? ParseResult::kEmpty : ParseResult::kRecord;
}

bool RecordParser::HasTextWithNul() const {
  return std::any_of(plan_.fields.begin(), plan_.fields.end(), [](const FieldPlan& field) {
    return field.buffer->Text().find('\0') != std::string_view::npos;
  });
}

bool RecordParser::FillDate(const FieldPlan& field, std::string_view value) {
  const auto date = ReadDateValue(value, field.date, plan_.century, plan_.utf8);
  if (!date) return false;
  if (field.target == FieldPlan::Target::kDate) {
    field.buffer->SetDate(*date);
    return true;
  }
  const auto text = FormatDateValue(*date);
  return StoreValue({text.data(), text.size()}, field.target, plan_, *field.buffer);
}

bool RecordParser::FillColumn(const FieldPlan& field, std::string_view value, bool& empty) {
  if (StoredPart(value, plan_).empty()) value = {};
  if (field.format == FieldPlan::Format::kDate) {
    empty = value.empty() || (plan_.blanks_are_null && IsBlank(value));
    if (!empty) return FillDate(field, value);
    field.buffer->SetNull();
    return true;
  }
  if (field.format == FieldPlan::Format::kReplaceSeparator && !IsBlank(value)) {
    ReplaceDecimalSeparator(value, field.separator, scratch_);
    value = scratch_;
  } else if (field.format == FieldPlan::Format::kInsertSeparator && !IsBlank(value)) {
    if (!InsertDecimalSeparator(value, field.decimals, field.separator, plan_.utf8, scratch_)) {
      return false;
    }
    value = scratch_;
  }
  value = StoredPart(value, plan_);
  empty = value.empty();
  if (StoreValue(value, field.target, plan_, *field.buffer)) return true;
  // Don't fail on a key here: SentValues complains about it, with the name of its column.
  if (!field.is_key || field.target != FieldPlan::Target::kNumber) return false;
  field.buffer->SetUnreadableNumber(value, plan_.utf8);
  return true;
}

}  // namespace imptable
