#ifndef DIALOGS_COLUMNS_COLUMN_CHECK_H_
#define DIALOGS_COLUMNS_COLUMN_CHECK_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "core/ModuleCommun.h"
#include "dialogs/columns/ColumnLayoutState.h"
#include "dialogs/columns/FileColumn.h"

namespace imptable {

/// What keeps a layout from being saved.
struct LayoutFailure {
  std::string text;  // for the user
  std::size_t row = 0;

  bool operator==(const LayoutFailure&) const = default;
};

/// The first failure over the columns of the source file.
std::optional<LayoutFailure> CheckFileColumns(const ModuleCommun& module,
                                              const std::vector<FileColumn>& columns,
                                              bool fixed_width);

/// The first failure over the destination table's columns.
/// @param file_column_count  how many columns of the source file an origin can name.
std::optional<LayoutFailure> CheckFields(const ModuleCommun& module,
                                         const std::vector<FieldRow>& rows,
                                         std::size_t file_column_count);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_COLUMN_CHECK_H_
