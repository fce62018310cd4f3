#ifndef DIALOGS_COLUMNS_STORED_LAYOUT_H_
#define DIALOGS_COLUMNS_STORED_LAYOUT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/ModuleCommun.h"
#include "dialogs/columns/ColumnLayoutState.h"
#include "dialogs/columns/FileColumn.h"

namespace imptable {

/// A value of "Colonnes" or "Champs" that isn't what it has to be.
struct UnreadableValue {
  std::string name;  // as "Colonnes\2"
  std::string text;  // as stored; empty when there is none

  bool operator==(const UnreadableValue&) const = default;
};

/// Reads "Colonnes" of a task.
/// Shape:  `count` columns. A column without a value is a text. The missing value counts as
/// unreadable, unless the task has no value there at all.
/// @param unreadable  receives, in order, the values of which a part or all can't be read.
/// @throws RuntimeFault  when the registry can't be read.
std::vector<FileColumn> ReadColonnes(const ModuleCommun& module, std::string_view task,
                                     bool fixed_width, std::size_t count,
                                     std::vector<UnreadableValue>& unreadable);

/// Reads "Champs" of a task: one row a value, in the order in which a run takes them.
/// @throws RuntimeFault  when the registry can't be read.
std::vector<FieldRow> ReadChamps(const ModuleCommun& module, std::string_view task,
                                 std::vector<UnreadableValue>& unreadable);

/// Deletes "Colonnes" and writes it again.
/// @return the first system result code that isn't 0; later values are written all the same.
/// @throws RuntimeFault  when the registry can't be read.
std::int32_t WriteColonnes(ModuleCommun& module, std::string_view task, bool fixed_width,
                           const std::vector<FileColumn>& columns);

/// Deletes "Champs" and, when `assigned`, writes it again. Returns and throws as WriteColonnes.
std::int32_t WriteChamps(ModuleCommun& module, std::string_view task, bool assigned,
                         const std::vector<FieldRow>& rows);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_STORED_LAYOUT_H_
