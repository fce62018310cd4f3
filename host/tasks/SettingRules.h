#ifndef HOST_TASKS_SETTING_RULES_H_
#define HOST_TASKS_SETTING_RULES_H_

#include <optional>
#include <string>

#include "core/SettingsTable.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// Which texts may be stored as a setting: those that a run accepts, but none that a run would take
/// for something else than was meant.
struct SettingRules {
  const TextEncoding& encoding;  // borrowed
  /// Whether the task's data file is of fixed width; nullopt when that isn't known yet.
  std::optional<bool> fixed_width;

  /// The value as it is stored, its text in UTF-8.
  /// @param name, text  as the user gave them, in the system's code page.
  /// @throws HostError  wrong usage, which says what is allowed.
  RegistryValue Stored(const SettingPlace& place, const std::string& name,
                       const std::string& text) const;
};

}  // namespace imptable

#endif  // HOST_TASKS_SETTING_RULES_H_
