#include "dialogs/columns/ColumnCheck.h"

#include "core/NumberText.h"
#include "dialogs/columns/DatePattern.h"
#include "dialogs/columns/FieldAssignment.h"

namespace imptable {
namespace {

/// The message that asks for a length; nullopt for a type that needs no length.
std::optional<Message> LengthMessage(FileColumnType type) {
  switch (type) {
    case FileColumnType::kText:
    case FileColumnType::kBoolean:
      return Message::kEnterTextLength;
    case FileColumnType::kByte:
      return Message::kEnterByteLength;
    case FileColumnType::kInteger:
      return Message::kEnterIntegerLength;
    case FileColumnType::kLong:
      return Message::kEnterLongLength;
    case FileColumnType::kSingle:
      return Message::kEnterSingleLength;
    case FileColumnType::kDouble:
      return Message::kEnterDoubleLength;
    case FileColumnType::kDate:
      break;
  }
  return std::nullopt;
}

bool LeavesRoomForDecimals(const FileColumn& column) {
  if (column.type != FileColumnType::kSingle && column.type != FileColumnType::kDouble) return true;
  return ReadWholeNumber(column.length).value_or(0) > ReadWholeNumber(column.decimals).value_or(0);
}

/// @param number  of the column, as the user counts.
std::string FailureOf(const ModuleCommun& module, const FileColumn& column, bool fixed_width,
                      const std::string& number) {
  const std::optional<Message> length_message = LengthMessage(column.type);
  if (fixed_width && length_message && column.length.empty()) {
    return module.MessageText(*length_message) + number;
  }
  if (fixed_width && !LeavesRoomForDecimals(column)) {
    return module.MessageText(Message::kLengthMustBeGreater) + ' ' +
           module.MessageText(Message::kThanDecimals) + module.MessageText(Message::kInColumn) +
           number;
  }
  if (column.type == FileColumnType::kDate && !ReadDateFormat(module, column.decimals)) {
    return module.MessageText(Message::kEnterDateFormat) + number;
  }
  return {};
}

std::string FailureOf(const ModuleCommun& module, const FieldRow& row,
                      std::size_t file_column_count) {
  if (row.origin.empty() || row.origin == kVariableOrigin) {
    return module.MessageText(Message::kEnterOrigin) + row.name;
  }
  const auto number = NumberOfFileColumnOrigin(module, row.origin);
  if (!number) return {};
  const bool known = *number > 0 && static_cast<std::size_t>(*number) <= file_column_count;
  return known ? std::string() : module.MessageText(Message::kUnknownColumn);
}

}  // namespace

std::optional<LayoutFailure> CheckFileColumns(const ModuleCommun& module,
                                              const std::vector<FileColumn>& columns,
                                              bool fixed_width) {
  for (std::size_t row = 0; row < columns.size(); ++row) {
    std::string text = FailureOf(module, columns[row], fixed_width, std::to_string(row + 1));
    if (!text.empty()) return LayoutFailure{std::move(text), row};
  }
  return std::nullopt;
}

std::optional<LayoutFailure> CheckFields(const ModuleCommun& module,
                                         const std::vector<FieldRow>& rows,
                                         std::size_t file_column_count) {
  for (std::size_t row = 0; row < rows.size(); ++row) {
    std::string text = FailureOf(module, rows[row], file_column_count);
    if (!text.empty()) return LayoutFailure{std::move(text), row};
  }
  return std::nullopt;
}

}  // namespace imptable
