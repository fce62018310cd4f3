#include "import/layout/ColumnLayout.h"

#include "core/NumberText.h"
#include "core/RuntimeFault.h"

namespace imptable {
namespace {

[[noreturn]] void FailOn(std::size_t number, const std::string& entry) {
  throw RuntimeFault(FaultNumber::kTypeMismatch,
                     "\"Colonnes\\" + std::to_string(number) + "\" = \"" + entry + '"');
}

ColumnDefinition ParseColumnDefinition(const std::string& text, std::size_t number,
                                       bool fixed_width) {
  const ColumnEntry entry(text);
  const auto number_in = [&](std::string_view item) {
    const auto whole = ReadCount(item);
    if (!whole) FailOn(number, text);
    return std::size_t{*whole};
  };
  ColumnDefinition column;
  column.type = entry.type().value_or(FileColumnType::kText);
  const bool is_date = column.type == FileColumnType::kDate;
  if (is_date) column.date = {entry.date_style(), entry.time()};
  if (MayImplyDecimals(column.type) && !entry.decimals().empty()) {
    column.decimals = number_in(entry.decimals());
  }
  if (fixed_width) {
    const bool by_format = is_date && entry.width().empty();
    column.width = by_format ? DateFormatWidth(column.date) : number_in(entry.width());
  }
  return column;
}

/// The last item of a value of "Champs".
std::string_view OriginItem(std::string_view value) { return value.substr(value.rfind(',') + 1); }

}  // namespace

std::vector<ColumnDefinition> ParseColumnLayout(const std::vector<std::string>& entries,
                                                bool fixed_width) {
  std::vector<ColumnDefinition> layout;
  layout.reserve(entries.size());
  for (const std::string& entry : entries) {
    layout.push_back(ParseColumnDefinition(entry, layout.size() + 1, fixed_width));
  }
  return layout;
}

std::optional<std::string> VariableOfOrigin(std::string_view value) {
  const std::string_view item = OriginItem(value);
  if (!item.starts_with('@')) return std::nullopt;
  return std::string(item.substr(1));
}

ColumnOrigin ParseColumnOrigin(std::string_view value, std::string_view name) {
  const std::string_view item = OriginItem(value);
  if (item == kNullText) return {ColumnOrigin::Kind::kNull, 0, {}};
  if (auto variable = VariableOfOrigin(value)) {
    return {ColumnOrigin::Kind::kVariable, 0, *std::move(variable)};
  }
  if (!item.starts_with(kFieldOrigin)) {
    return {ColumnOrigin::Kind::kConstant, 0, std::string(item)};
  }
  const auto number = ReadCount(item.substr(kFieldOrigin.size()));
  const auto fault = [&](FaultNumber kind) {
    return RuntimeFault(kind,
                        "\"Champs\\" + std::string(name) + "\" = \"" + std::string(value) + '"');
  };
  if (!number) throw fault(FaultNumber::kTypeMismatch);
  if (*number == 0) throw fault(FaultNumber::kIndexOutOfRange);
  return {ColumnOrigin::Kind::kField, std::size_t{*number} - 1, {}};
}

}  // namespace imptable
