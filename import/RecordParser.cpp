#include "import/RecordParser.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "import/CharacterCount.h"
#include "plugin/core/Blanks.h"

namespace imptable {
namespace {

std::size_t FindDelimiter(std::string_view line, std::string_view delimiter, std::size_t from) {
  if (delimiter.size() != 1) return line.find(delimiter, from);
  const void* const found = std::memchr(line.data() + from, delimiter[0], line.size() - from);
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - line.data());
}

}  // namespace

void SplitDelimited(std::string_view line, std::string_view delimiter, std::size_t step,
                    std::size_t most, std::vector<std::string_view>& fields) {
  fields.clear();
  std::size_t from = 0;
  while (fields.size() < most) {
    const std::size_t at = FindDelimiter(line, delimiter, from);
    if (at == std::string_view::npos) {
      fields.push_back(line.substr(from));
      return;
    }
    fields.push_back(line.substr(from, at - from));
    from = at + step;
  }
}

void SplitFixedWidth(std::string_view line, const std::vector<std::size_t>& widths, bool utf8,
                     std::vector<std::string_view>& fields) {
  fields.clear();
  const bool by_characters = utf8 && !IsAscii(line);
  for (const std::size_t width : widths) {
    const std::size_t bytes = BytesOfCharacters(line, width, by_characters);
    fields.push_back(line.substr(0, bytes));
    line.remove_prefix(bytes);
  }
}

RecordParser::RecordParser(RecordPlan plan) : plan_(std::move(plan)) {
  delimiter_step_ = BytesOfCharacters(plan_.delimiter, 1, plan_.utf8);
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
  // The values of several columns are joined by ",", so their record is never empty.
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
  // A key's own complaint names its column.
  if (!field.is_key || field.target != FieldPlan::Target::kNumber) return false;
  field.buffer->SetUnreadableNumber(value, plan_.utf8);
  return true;
}

}  // namespace imptable
