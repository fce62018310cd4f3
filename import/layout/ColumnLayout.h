#ifndef IMPORT_LAYOUT_COLUMN_LAYOUT_H_
#define IMPORT_LAYOUT_COLUMN_LAYOUT_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/layout/ColumnEntry.h"

namespace imptable {

/// One column of the source file.
struct ColumnDefinition {
  FileColumnType type = FileColumnType::kText;
  std::size_t decimals = 0;  // implied ones
  DateFormat date;
  std::size_t width = 0;  // characters, in a fixed-width file
};

/// Reads the entries of "Colonnes": items separated by ",", by position.
/// A date column of a fixed-width file takes the width of its format when its entry has no width.
/// @throws RuntimeFault  type mismatch, naming the entry, when the decimals or (in a fixed-width
/// file) the width is no whole number, or the width is missing.
std::vector<ColumnDefinition> ParseColumnLayout(const std::vector<std::string>& entries,
                                                bool fixed_width);

// Words of "Champs": never change.

/// Stands for a null: as an origin, and as any value that has this text.
inline constexpr std::string_view kNullText = "Null";

/// The start of an origin that names a column of the file; its number from 1 follows.
inline constexpr std::string_view kFieldOrigin = "(Col)";

/// The end of an assignment whose table column isn't to be written.
inline constexpr std::string_view kIgnoreMark = "Ignore";

/// Where a table column's value comes from.
struct ColumnOrigin {
  enum class Kind : std::uint8_t { kField, kNull, kVariable, kConstant };
  Kind kind = Kind::kNull;
  std::size_t field = 0;  // of the file, from 0
  std::string text;       // the constant, or the variable's name without "@"
};

/// Reads one value of "Champs": its last item, after the last ",", is the origin.
/// @param name  the value's name, for the fault.
/// @throws RuntimeFault  type mismatch when "(Col)" is followed by no number; index out of range
/// when that number is 0.
ColumnOrigin ParseColumnOrigin(std::string_view value, std::string_view name);

/// The variable, without "@", that is the origin in a value of "Champs"; nullopt for any other
/// origin.
std::optional<std::string> VariableOfOrigin(std::string_view value);

}  // namespace imptable

#endif  // IMPORT_LAYOUT_COLUMN_LAYOUT_H_
