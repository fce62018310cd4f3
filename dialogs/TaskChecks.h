#ifndef DIALOGS_TASK_CHECKS_H_
#define DIALOGS_TASK_CHECKS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "dialogs/ImpTableState.h"

namespace imptable {

/// Why a task can't be saved as it stands, and the control in which the user can change that.
struct Refusal {
  Message message;
  int tab = kParametersTab;
  std::string_view control;

  bool operator==(const Refusal&) const = default;
};

/// Some data sources know no users.
enum class UserName { kWanted, kMayBeMissing };

/// Makes the checks before saving, except those of the columns. @return the first failure.
/// @param existing  the task was saved before: its name may be there already.
/// @throws RuntimeFault  when the registry can't be read.
std::optional<Refusal> CheckTask(const ModuleCommun& module, bool existing,
                                 const ImpTableState& state, UserName user_name);

/// Checks before connecting: a data source is given, and for the second function a table, too.
std::optional<Refusal> CheckSource(const ImpTableState& state);
std::optional<Refusal> CheckSourceAndTable(const ImpTableState& state);

}  // namespace imptable

#endif  // DIALOGS_TASK_CHECKS_H_
