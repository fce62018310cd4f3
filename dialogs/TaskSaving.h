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

/// Writes the task as the dialog holds it, value by value, always in the same order. Stops at the
/// first refused write and rolls nothing back. Going on would delete the task's subkeys even in a
/// registry that takes no new values.
/// @param existing  the task was saved before: the date of its change is written, else the date of
/// its creation.
/// @param state  an empty error limit becomes "100".
std::optional<SaveFailure> SaveTask(ModuleCommun& module, const std::string& task, bool existing,
                                    ImpTableState& state, ColumnLayoutEditor& columns);

}  // namespace imptable

#endif  // DIALOGS_TASK_SAVING_H_
