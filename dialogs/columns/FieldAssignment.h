#ifndef DIALOGS_COLUMNS_FIELD_ASSIGNMENT_H_
#define DIALOGS_COLUMNS_FIELD_ASSIGNMENT_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "dialogs/columns/ColumnLayoutState.h"
#include "import/layout/ColumnLayout.h"
#include "odbc/Catalogue.h"

namespace imptable {

// Origins of the list, the same in both languages.
inline constexpr std::string_view kIgnoreOrigin = kIgnoreMark;
inline constexpr std::string_view kNullOrigin = kNullText;
inline constexpr std::string_view kVariableOrigin = "Variable";

/// The origin that names a column of the source file.
/// @param number  from 1.
std::string FileColumnOrigin(const ModuleCommun& module, std::int32_t number);

/// The number that an origin of that form names; 0 when it names none.
/// @return nullopt for an origin of any other form.
std::optional<std::int32_t> NumberOfFileColumnOrigin(const ModuleCommun& module,
                                                     std::string_view origin);

/// A typed origin as the grid shows it.
/// @return nullopt for a text that "Champs" can't hold or that the import would read as something
/// else.
std::optional<std::string> TypedOrigin(const ModuleCommun& module, std::string_view text);

/// The value of "Champs" that stores a row: its name, format and origin, separated by ",".
std::string FieldAssignmentCode(const ModuleCommun& module, const FieldRow& row);

/// The reverse of FieldAssignmentCode; the caller sets the row's number. A "," between parentheses
/// belongs to the format. Any other "," before the format belongs to the name.
/// @param readable  set to false when the origin begins like a file column's but names none. The
/// row's origin is then empty.
FieldRow ReadFieldAssignment(const ModuleCommun& module, std::string_view code, bool& readable);

/// A table's column as Grid2 shows its format: the type name; for texts, bytes and decimal numbers
/// also the size, for example VARCHAR(30) and DECIMAL(10,2). A type name that has a size already
/// stays as it is.
std::string TableColumnFormat(const TableColumn& column);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_FIELD_ASSIGNMENT_H_
