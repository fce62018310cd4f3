#ifndef CORE_SETTINGS_TABLE_H_
#define CORE_SETTINGS_TABLE_H_

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/ImportSettings.h"
#include "platform/registry/Registry.h"

namespace imptable {

/// Subkeys of a task's key that hold one text per column, named by its number.
inline constexpr std::string_view kColumnsSubkey = "Colonnes";
inline constexpr std::string_view kFieldsSubkey = "Champs";

/// The values of a task's key, in the order in which they are listed.
enum class SettingId : std::uint8_t {
#define TEXT_SETTING(id, name, member, text, fallback, whose) id,
#define NUMBER_SETTING(id, name, type, member, least, most, fallback, whose) id,
#define TEXT_ENTRY(id, name) id,
#define NUMBER_ENTRY(id, name, least, most) id,
#include "core/Settings.inc"
#undef TEXT_SETTING
#undef NUMBER_SETTING
#undef TEXT_ENTRY
#undef NUMBER_ENTRY
};

/// Which texts a run accepts for a setting.
enum class SettingText : std::uint8_t {
  kAny,
  kReferable,   // any, or "@" and the name of a variable
  kErrorCode,   // a number, or "@" and the name of a variable
  kErrorLimit,  // a number of errors
  kColumn,      // the description of a column of the data file
  kField,       // the origin of a table column's value
};

/// Whose a setting is, which says when a run reads it.
enum class SettingOrigin : std::uint8_t {
  kHost,  // the host's registry sees it read at its place in a fixed order
  kOwn,   // read after those
};

/// The whole numbers that a setting may have.
struct NumberRange {
  std::int32_t least = std::numeric_limits<std::int32_t>::min();
  std::int32_t most = std::numeric_limits<std::int32_t>::max();
};

/// How the number of a setting is read from ImportSettings and put into it.
struct NumberMember {
  std::int16_t (*get)(const ImportSettings& settings) = nullptr;
  void (*set)(ImportSettings& settings, std::int16_t number) = nullptr;
};

/// One value of a task's key. Both members are empty for a value that isn't in ImportSettings.
struct Setting {
  SettingId id = SettingId::kDataSource;
  std::string_view name;  // in UTF-8
  RegistryType type = RegistryType::kText;
  SettingText text = SettingText::kAny;
  NumberRange range;                // of a number
  std::string_view default_text;    // when the stored text is absent or empty
  std::int16_t default_number = 0;  // when the stored number is absent or empty
  std::string ImportSettings::*text_member = nullptr;
  NumberMember number_member;
  SettingOrigin origin = SettingOrigin::kHost;
};

const Setting& SettingOf(SettingId id);

/// All settings, in the order of SettingId.
std::span<const Setting> Settings();

/// Where a setting is stored, its type, and which values it may have.
struct SettingPlace {
  std::string subkey;  // of the task's key; empty for the task's key itself
  std::string name;
  RegistryType type = RegistryType::kText;
  SettingText text = SettingText::kAny;  // of a text
  NumberRange range;                     // of a number
};

/// Finds a setting by its value name, without regard to case: a value of the task's key or
/// Colonnes\N or Champs\N, N from 1. Takes and gives UTF-8.
/// @return nullopt for a name that no task has.
std::optional<SettingPlace> FindSetting(std::string_view name);

/// Every value name of a task's key, in UTF-8, separated by ", ".
std::string SettingNames();

}  // namespace imptable

#endif  // CORE_SETTINGS_TABLE_H_
