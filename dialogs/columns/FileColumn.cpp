#include "dialogs/columns/FileColumn.h"

#include <vector>

#include "core/Blanks.h"
#include "core/WholeNumber.h"
#include "dialogs/columns/DatePattern.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

constexpr char kItemSeparator = ',';

std::vector<std::string_view> ItemsOf(std::string_view code) {
  std::vector<std::string_view> items;
  for (std::size_t at = 0; at != std::string_view::npos;) {
    const std::size_t comma = code.find(kItemSeparator, at);
    items.push_back(code.substr(at, comma == std::string_view::npos ? comma : comma - at));
    at = comma == std::string_view::npos ? comma : comma + 1;
  }
  return items;
}

bool HasDecimals(FileColumnType type) {
  return type == FileColumnType::kInteger || type == FileColumnType::kSingle ||
         type == FileColumnType::kDouble;
}

std::string_view TimeItem(TimeCode time) {
  switch (time) {
    case TimeCode::kNone:
      return "";
    case TimeCode::kMinutes:
      return "0";
    case TimeCode::kSeconds:
      return "1";
  }
  return "";
}

TimeCode TimeOf(std::string_view item) {
  if (item == TimeItem(TimeCode::kSeconds)) return TimeCode::kSeconds;
  if (item == TimeItem(TimeCode::kMinutes)) return TimeCode::kMinutes;
  return TimeCode::kNone;
}

/// "," separates the items, so it can't be one. An empty item stands for it: the style says whether
/// the date has a separator.
constexpr std::string_view kUnstorableSeparator = ",";

std::string DateItems(const ModuleCommun& module, const FileColumn& column, bool fixed_width) {
  std::string style;
  std::string separator;
  std::string_view time;
  if (const auto pattern = ReadDateFormat(module, column.decimals)) {
    style = std::to_string(DateStyleOf(*pattern));
    if (pattern->separator != kUnstorableSeparator) separator = pattern->separator;
    time = TimeItem(pattern->time);
  }
  return ',' + style + ',' + (fixed_width ? column.length : std::string()) + ',' + separator + ',' +
         std::string(time);
}

/// A number as the grid shows it; empty for an item of blanks.
std::string NumberText(std::string_view item, bool& readable) {
  if (IsBlank(item)) return {};
  const auto number = ReadWholeNumber(item);
  if (!number) readable = false;
  return number ? std::to_string(*number) : std::string();
}

std::string DateText(const ModuleCommun& module, std::string_view style_item,
                     std::string_view separator_item, std::string_view time_item, bool& readable) {
  for (std::size_t style = 1; style <= kDateStyles.size(); ++style) {
    if (style_item != std::to_string(style)) continue;
    const bool utf8 = module.platform.encoding.IsUtf8();
    const std::string_view separator =
        separator_item.empty()
            ? kUnstorableSeparator
            : separator_item.substr(0, BytesOfCharacters(separator_item, 1, utf8));
    const auto number = static_cast<std::uint8_t>(style);
    return DateFormatText(module, *DatePatternOf(number, separator, TimeOf(time_item)));
  }
  readable = false;
  return {};
}

}  // namespace

std::string FileColumnCode(const ModuleCommun& module, const FileColumn& column, bool fixed_width) {
  std::string code = std::to_string(static_cast<int>(column.type));
  if (column.type == FileColumnType::kDate) return code + DateItems(module, column, fixed_width);
  const std::string decimals = HasDecimals(column.type) ? column.decimals : std::string();
  if (fixed_width) return code + ',' + decimals + ',' + column.length;
  if (!decimals.empty()) code += ',' + decimals;
  return code;
}

FileColumn ReadFileColumn(const ModuleCommun& module, std::string_view code, bool fixed_width,
                          bool& readable) {
  FileColumn column;
  std::vector<std::string_view> items = ItemsOf(code);
  items.resize(5);
  const std::string_view type = items[0];
  if (type.size() == 1 && type[0] >= '1' && type[0] <= '8') {
    column.type = static_cast<FileColumnType>(type[0] - '0');
  } else {
    readable = false;
  }
  if (column.type == FileColumnType::kDate) {
    column.decimals = DateText(module, items[1], items[3], items[4], readable);
  } else if (HasDecimals(column.type)) {
    column.decimals = NumberText(items[1], readable);
  }
  if (fixed_width) column.length = NumberText(items[2], readable);
  return column;
}

}  // namespace imptable
