#ifndef HOST_SETTINGS_TABLE_H_
#define HOST_SETTINGS_TABLE_H_

#include <optional>
#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace imptable {

/// Subkeys of a task's key that hold one text per column, named by its number.
inline constexpr std::string_view kColumnsSubkey = "Colonnes";
inline constexpr std::string_view kFieldsSubkey = "Champs";

/// Where a setting is stored and as what.
struct SettingPlace {
  std::string subkey;  // of the task's key; empty for the task's key itself
  std::string name;
  RegistryType type = RegistryType::kText;
};

/// Finds a setting by its value name, without regard to case: a value of the task's key or
/// Colonnes\N or Champs\N, N from 1. Takes and gives UTF-8.
/// @return nullopt for a name that no task has.
std::optional<SettingPlace> FindSetting(std::string_view name);

/// Every value name of a task's key, in UTF-8, separated by ", ".
std::string SettingNames();

}  // namespace imptable

#endif  // HOST_SETTINGS_TABLE_H_
