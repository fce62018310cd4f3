#ifndef DIALOGS_COLUMNS_FILE_COLUMN_H_
#define DIALOGS_COLUMNS_FILE_COLUMN_H_

#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {

/// A column of the source file as the user edits it.
struct FileColumn {
  FileColumnType type = FileColumnType::kText;
  std::string decimals;  // digits; the format text of a date; empty when there is nothing to say
  std::string length;    // digits, in characters; empty when not given or the file is delimited

  bool operator==(const FileColumn&) const = default;
};

/// The value of "Colonnes" that stores a column: items separated by ",", the trailing ones only as
/// far as the type and the file's format need them.
std::string FileColumnCode(const ModuleCommun& module, const FileColumn& column, bool fixed_width);

/// The reverse of FileColumnCode.
/// @param readable  set to false when an item can't be read. Its text is then empty; a column whose
/// type can't be read is a text.
FileColumn ReadFileColumn(const ModuleCommun& module, std::string_view code, bool fixed_width,
                          bool& readable);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_FILE_COLUMN_H_
