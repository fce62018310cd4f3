#ifndef CORE_IMPORT_SETTINGS_H_
#define CORE_IMPORT_SETTINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

// The values of settings that have few: never change. A registry may hold any other number, which
// is kept: it is none of the names.

/// "Mode".
enum class ImportMode : std::int16_t {
  kInsert = 0,
  kUpdate = 1,
  kInsertUpdate = 2,  // imports nothing
  kUpdateInsert = 3,
  kDelete = 4,
};

/// Whether there is an import for this value of "Mode".
constexpr bool ImportsAnything(ImportMode mode) {
  return mode == ImportMode::kInsert || mode == ImportMode::kUpdate ||
         mode == ImportMode::kUpdateInsert || mode == ImportMode::kDelete;
}

/// "Suppression".
enum class Deletion : std::int16_t { kNone = 0, kGlobal = 1, kSelective = 2 };

/// "FormatFile".
enum class FileFormat : std::int16_t { kFixedWidth = 0, kDelimited = 1 };

/// A setting that is on or off.
enum class Flag : std::int16_t { kOff = 0, kOn = 1 };

/// One task's parameters as stored, a member for each setting of core/Settings.inc; "@" references
/// are not resolved. `record_errors` and `primary_key` are on for any value but kOff.
struct ImportSettings {
#define TEXT_SETTING(id, name, member, text, fallback, whose) std::string member;
#define NUMBER_SETTING(id, name, type, member, least, most, fallback, whose) \
  type member = static_cast<type>(fallback);
#define TEXT_ENTRY(id, name)
#define NUMBER_ENTRY(id, name, least, most)
#include "core/Settings.inc"
#undef TEXT_SETTING
#undef NUMBER_SETTING
#undef TEXT_ENTRY
#undef NUMBER_ENTRY
  std::vector<std::string> column_layout;  // subkey "Colonnes": value n at index n - 1
};

/// One value of "Champs": where a table column's value comes from.
struct StoredAssignment {
  std::string name;  // the number of the table column
  std::string value;
};

/// True for a text that names a scenario variable instead of being a literal.
inline bool IsVariableReference(std::string_view text) { return text.starts_with('@'); }

}  // namespace imptable

#endif  // CORE_IMPORT_SETTINGS_H_
