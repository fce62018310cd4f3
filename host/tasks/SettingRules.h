#ifndef HOST_TASKS_SETTING_RULES_H_
#define HOST_TASKS_SETTING_RULES_H_

#include <optional>
#include <string>

#include "core/SettingsTable.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// What a text setting must be to be stored: what a run takes, and none of what it would take for
/// something else than was meant.
struct SettingRules {
  const TextEncoding& encoding;  // borrowed
  /// Whether the task's data file is of fixed width; nullopt as long as nothing says so.
  std::optional<bool> fixed_width;

  /// The value as it is stored, its text in UTF-8.
  /// @param name, text  as the user gave them, in the system's code page.
  /// @throws HostError  wrong usage, which says what is allowed.
  RegistryValue Stored(const SettingPlace& place, const std::string& name,
                       const std::string& text) const;
};

}  // namespace imptable

#endif  // HOST_TASKS_SETTING_RULES_H_
