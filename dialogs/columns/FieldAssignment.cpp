#include "dialogs/columns/FieldAssignment.h"

#include <algorithm>
#include <array>

#include "core/NumberText.h"

namespace imptable {
namespace {

std::string OriginPrefix(const ModuleCommun& module) {
  return "Col " + module.MessageText(Message::kNumber) + ' ';
}

/// The place of the "," between name and format; npos when there is none.
std::size_t FormatComma(std::string_view text) {
  int depth = 0;
  for (std::size_t at = text.size(); at-- > 0;) {
    if (text[at] == ')') ++depth;
    if (text[at] == '(') --depth;
    if (text[at] == ',' && depth <= 0) return at;
  }
  return text.find(',');
}

std::string StoredOrigin(const ModuleCommun& module, const std::string& origin) {
  const auto number = NumberOfFileColumnOrigin(module, origin);
  return number ? std::string(kFieldOrigin) + std::to_string(*number) : origin;
}

// ODBC SQL types whose size the type name doesn't say.
constexpr std::array<std::int16_t, 2> kDecimalTypes{SQL_NUMERIC, SQL_DECIMAL};
constexpr std::array<std::int16_t, 6> kSizedTypes{SQL_CHAR,      SQL_VARCHAR, SQL_BINARY,
                                                  SQL_VARBINARY, SQL_WCHAR,   SQL_WVARCHAR};

template <std::size_t kSize>
bool Contains(const std::array<std::int16_t, kSize>& types, std::int16_t type) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

}  // namespace

std::string FileColumnOrigin(const ModuleCommun& module, std::int32_t number) {
  return OriginPrefix(module) + std::to_string(number);
}

std::optional<std::int32_t> NumberOfFileColumnOrigin(const ModuleCommun& module,
                                                     std::string_view origin) {
  const std::string prefix = OriginPrefix(module);
  if (!origin.starts_with(prefix)) return std::nullopt;
  return ReadWholeNumber(origin.substr(prefix.size())).value_or(0);
}

std::optional<std::string> TypedOrigin(const ModuleCommun& module, std::string_view text) {
  if (text.find(',') != std::string_view::npos || text == kVariableOrigin) return std::nullopt;
  if (text.ends_with(kIgnoreOrigin) && text != kIgnoreOrigin) return std::nullopt;
  if (!text.starts_with(kFieldOrigin)) return std::string(text);
  const auto number = ReadWholeNumber(text.substr(kFieldOrigin.size()));
  if (!number || *number == 0) return std::nullopt;
  return FileColumnOrigin(module, *number);
}

std::string FieldAssignmentCode(const ModuleCommun& module, const FieldRow& row) {
  return row.name + ',' + row.format + ',' + StoredOrigin(module, row.origin);
}

FieldRow ReadFieldAssignment(const ModuleCommun& module, std::string_view code, bool& readable) {
  FieldRow row;
  const std::size_t origin_comma = code.rfind(',');
  const std::string_view origin =
      origin_comma == std::string_view::npos ? code : code.substr(origin_comma + 1);
  code = origin_comma == std::string_view::npos ? std::string_view() : code.substr(0, origin_comma);
  const std::size_t format_comma = FormatComma(code);
  row.name = code.substr(0, format_comma);
  if (format_comma != std::string_view::npos) row.format = code.substr(format_comma + 1);
  if (!origin.starts_with(kFieldOrigin)) {
    row.origin = origin;
    return row;
  }
  const auto number = ReadWholeNumber(origin.substr(kFieldOrigin.size()));
  if (number && *number > 0) {
    row.origin = FileColumnOrigin(module, *number);
  } else {
    readable = false;
  }
  return row;
}

std::string TableColumnFormat(const TableColumn& column) {
  if (column.precision <= 0 || column.type_name.find('(') != std::string::npos) {
    return column.type_name;
  }
  const std::string size = std::to_string(column.precision);
  if (Contains(kDecimalTypes, column.sql_type)) {
    return column.type_name + '(' + size + ',' + std::to_string(column.scale) + ')';
  }
  return Contains(kSizedTypes, column.sql_type) ? column.type_name + '(' + size + ')'
                                                : column.type_name;
}

}  // namespace imptable
