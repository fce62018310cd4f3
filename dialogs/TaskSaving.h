#ifndef DIALOGS_TASK_SAVING_H_
#define DIALOGS_TASK_SAVING_H_

#include <cstdint>
#include <optional>
#include <string>

#include "core/ModuleCommun.h"
#include "dialogs/ImpTableState.h"
#include "dialogs/columns/ColumnLayoutEditor.h"

namespace imptable {

/// The first write that the registry refused.
struct SaveFailure {
  std::string name;       // of the value or subkey
  std::int32_t code = 0;  // the system's
};

/// Writes the task as the dialog holds it, value by value, always in the same order; nothing is
/// rolled back. The first refused write ends it, so that a registry that takes nothing isn't robbed
/// of the subkeys that are deleted before they are written anew.
/// @param existing  the task was saved before: its change is dated, else its creation.
/// @param state  an empty error limit becomes "100".
std::optional<SaveFailure> SaveTask(ModuleCommun& module, const std::string& task, bool existing,
                                    ImpTableState& state, ColumnLayoutEditor& columns);

}  // namespace imptable

#endif  // DIALOGS_TASK_SAVING_H_
