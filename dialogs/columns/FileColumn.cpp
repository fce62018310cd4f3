#include "dialogs/columns/FileColumn.h"

#include "core/Blanks.h"
#include "core/NumberText.h"
#include "dialogs/columns/DatePattern.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

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
std::string ShownNumber(std::string_view item, bool& readable) {
  if (IsBlank(item)) return {};
  const auto number = ReadWholeNumber(item);
  if (!number) readable = false;
  return number ? std::to_string(*number) : std::string();
}

std::string DateText(const ModuleCommun& module, const ColumnEntry& entry, bool& readable) {
  const std::uint8_t style = entry.date_style();
  if (style == 0) {
    readable = false;
    return {};
  }
  const bool utf8 = module.platform.encoding.IsUtf8();
  const std::string_view item = entry.date_separator();
  const std::string_view separator =
      item.empty() ? kUnstorableSeparator : item.substr(0, BytesOfCharacters(item, 1, utf8));
  return DateFormatText(module, *DatePatternOf(style, separator, entry.time()));
}

}  // namespace

std::string FileColumnCode(const ModuleCommun& module, const FileColumn& column, bool fixed_width) {
  std::string code = std::to_string(static_cast<int>(column.type));
  if (column.type == FileColumnType::kDate) return code + DateItems(module, column, fixed_width);
  const std::string decimals = MayImplyDecimals(column.type) ? column.decimals : std::string();
  if (fixed_width) return code + ',' + decimals + ',' + column.length;
  if (!decimals.empty()) code += ',' + decimals;
  return code;
}

FileColumn ReadFileColumn(const ModuleCommun& module, std::string_view code, bool fixed_width,
                          bool& readable) {
  FileColumn column;
  const ColumnEntry entry(code);
  const auto type = entry.type();
  if (!type) readable = false;
  column.type = type.value_or(FileColumnType::kText);
  if (column.type == FileColumnType::kDate) {
    column.decimals = DateText(module, entry, readable);
  } else if (MayImplyDecimals(column.type)) {
    column.decimals = ShownNumber(entry.decimals(), readable);
  }
  if (fixed_width) column.length = ShownNumber(entry.width(), readable);
  return column;
}

}  // namespace imptable
