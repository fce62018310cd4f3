#ifndef CORE_TASK_SETTINGS_H_
#define CORE_TASK_SETTINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/ImportSettings.h"
#include "core/ModuleCommun.h"

namespace imptable {

/// Loads the settings of a task below the current registry location. An absent, empty or
/// unreadable value takes its default.
/// @throws RuntimeFault  type mismatch or overflow when a numeric value is no 16-bit number, or
/// "NombreColonnes" is negative.
ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task);

/// The same for a caller who can mend the task: a faulty number takes its default and its fault is
/// added to `faults`.
/// @throws RuntimeFault  device error, when the registry can't be read.
ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task,
                            std::vector<RuntimeFault>& faults);

/// Reads the settings that a run has beyond those of the host ("RecTrace").
/// @throws RuntimeFault  as LoadSettings.
void LoadOwnSettings(const ModuleCommun& module, std::string_view task, ImportSettings& settings);

/// The values of "Champs", in the order of the registry.
/// @throws RuntimeFault  device error, when the registry can't be read.
std::vector<StoredAssignment> LoadAssignments(const ModuleCommun& module, std::string_view task);

/// The place to decode a stored password. Passwords are stored in clear, so it changes nothing.
std::string TransformPassword(std::string password);

}  // namespace imptable

#endif  // CORE_TASK_SETTINGS_H_
