#ifndef IMPORT_LAYOUT_COLUMN_LAYOUT_H_
#define IMPORT_LAYOUT_COLUMN_LAYOUT_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/layout/DateFormat.h"

namespace imptable {

/// Type codes of file columns, item 1 of a "Colonnes" entry. Stored in task settings: never change.
/// An entry with any other code, or none, is a text.
enum class FileColumnType : std::uint8_t {
  kText = 1,
  kByte = 2,
  kInteger = 3,
  kLong = 4,
  kSingle = 5,
  kDouble = 6,
  kDate = 7,
  kBoolean = 8,
};

/// One column of the source file.
struct ColumnDefinition {
  FileColumnType type = FileColumnType::kText;
  std::size_t decimals = 0;  // implied ones
  DateFormat date;
  std::size_t width = 0;  // characters, in a fixed-width file
};

/// Reads the entries of "Colonnes": items separated by ",", by position.
/// A date column of a fixed-width file without a width takes that of its format.
/// @throws RuntimeFault  type mismatch, naming the entry, when the decimals or (in a fixed-width
/// file) the width is no whole number, or the width is missing.
std::vector<ColumnDefinition> ParseColumnLayout(const std::vector<std::string>& entries,
                                                bool fixed_width);

/// The value that stands for none: an origin, and any value that is the same text. Never change.
inline constexpr std::string_view kNullText = "Null";

/// Where a table column's value comes from.
struct ColumnOrigin {
  enum class Kind : std::uint8_t { kField, kNull, kVariable, kConstant };
  Kind kind = Kind::kNull;
  std::size_t field = 0;  // of the file, from 0
  std::string text;       // the constant, or the variable's name without "@"
};

/// Reads one value of "Champs": its last item, after the last ",", is the origin.
/// @param name  of the value, for the fault.
/// @throws RuntimeFault  type mismatch when "(Col)" is followed by no number; index out of range
/// when that number is 0.
ColumnOrigin ParseColumnOrigin(std::string_view value, std::string_view name);

/// The variable, without "@", that a value of "Champs" takes its origin from; nullopt for another
/// origin.
std::optional<std::string> VariableOfOrigin(std::string_view value);

}  // namespace imptable

#endif  // IMPORT_LAYOUT_COLUMN_LAYOUT_H_
