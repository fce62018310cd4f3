#include "import/layout/ColumnLayout.h"

#include <charconv>
#include <limits>

#include "core/Blanks.h"
#include "core/RuntimeFault.h"

namespace imptable {
namespace {

/// The n-th item of a list separated by ",", from 1; empty past the end.
std::string_view Item(std::string_view list, int n) {
  for (; n > 1; --n) {
    const std::size_t comma = list.find(',');
    if (comma == std::string_view::npos) return {};
    list.remove_prefix(comma + 1);
  }
  return list.substr(0, list.find(','));
}

std::optional<std::size_t> WholeNumber(std::string_view text) {
  text = WithoutBlanks(text);
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::uint8_t StyleNumber(std::string_view item) {
  for (std::size_t style = 1; style <= kDateStyles.size(); ++style) {
    if (item == std::to_string(style)) return static_cast<std::uint8_t>(style);
  }
  return 0;
}

TimeCode TimeCodeOf(std::string_view item) {
  if (item == "1") return TimeCode::kSeconds;
  if (item == "0") return TimeCode::kMinutes;
  return TimeCode::kNone;
}

FileColumnType TypeOf(std::string_view item) {
  if (item.size() == 1 && item[0] >= '1' && item[0] <= '8') {
    return static_cast<FileColumnType>(item[0] - '0');
  }
  return FileColumnType::kText;
}

bool HasNumberRule(FileColumnType type) {
  return type == FileColumnType::kInteger || type == FileColumnType::kSingle ||
         type == FileColumnType::kDouble;
}

[[noreturn]] void FailOn(std::size_t number, const std::string& entry) {
  throw RuntimeFault(FaultNumber::kTypeMismatch,
                     "\"Colonnes\\" + std::to_string(number) + "\" = \"" + entry + '"');
}

ColumnDefinition ParseColumnDefinition(const std::string& entry, std::size_t number,
                                       bool fixed_width) {
  ColumnDefinition column;
  column.type = TypeOf(Item(entry, 1));
  const std::string_view second = Item(entry, 2);
  if (column.type == FileColumnType::kDate) {
    column.date = {StyleNumber(second), TimeCodeOf(Item(entry, 5))};
  } else if (HasNumberRule(column.type) && !second.empty()) {
    const auto decimals = WholeNumber(second);
    if (!decimals) FailOn(number, entry);
    column.decimals = *decimals;
  }
  if (!fixed_width) return column;
  const std::string_view width = Item(entry, 3);
  if (width.empty() && column.type == FileColumnType::kDate) {
    column.width = DateFormatWidth(column.date);
    return column;
  }
  const auto characters = WholeNumber(width);
  if (!characters) FailOn(number, entry);
  column.width = *characters;
  return column;
}

constexpr std::string_view kFieldPrefix = "(Col)";

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
  if (!item.starts_with(kFieldPrefix)) {
    return {ColumnOrigin::Kind::kConstant, 0, std::string(item)};
  }
  const auto number = WholeNumber(item.substr(kFieldPrefix.size()));
  const auto fault = [&](FaultNumber kind) {
    return RuntimeFault(kind,
                        "\"Champs\\" + std::string(name) + "\" = \"" + std::string(value) + '"');
  };
  if (!number) throw fault(FaultNumber::kTypeMismatch);
  if (*number == 0) throw fault(FaultNumber::kIndexOutOfRange);
  return {ColumnOrigin::Kind::kField, *number - 1, {}};
}

}  // namespace imptable
