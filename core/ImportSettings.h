#ifndef CORE_IMPORT_SETTINGS_H_
#define CORE_IMPORT_SETTINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

// Settings with a short list of values. The numbers are stored in the registry: never change. A
// registry may hold a number that has no name here. Such a number is kept as it is.

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

/// One task's parameters as stored; "@" references are not resolved.
struct ImportSettings {
  std::string data_source;                           // "Base Cible"
  std::string login;                                 // "Login"
  std::string password;                              // "Password"
  std::string owner;                                 // "Owner"
  std::string table;                                 // "Table"
  std::string alias;                                 // "Alias"
  std::string comment;                               // "Comment"
  std::string directory;                             // "Dir"
  ImportMode mode = ImportMode::kInsert;             // "Mode"
  Deletion deletion = Deletion::kNone;               // "Suppression"
  std::string error_limit;                           // "Erreurs", default "100"
  Flag record_errors = Flag::kOn;                    // "RecErreurs": anything but kOff is on
  std::string key_or_index;                          // "Cle/Index"
  Flag primary_key = Flag::kOff;                     // "PrimKey": anything but kOff is on
  Flag duplicate_key = Flag::kOff;                   // "DupKey"
  std::string error_code;                            // "CodErr"
  Flag empty_file_policy = Flag::kOff;               // "SiVide"
  Flag separator_option = Flag::kOff;                // "SepDec"
  Flag null_option = Flag::kOff;                     // "Null"
  Flag parameter_option = Flag::kOff;                // "Param"
  std::int16_t column_count = 0;                     // "NombreColonnes"
  std::string delimiter;                             // "DelimiteurFile", default ";"
  FileFormat file_format = FileFormat::kFixedWidth;  // "FormatFile"
  std::vector<std::string> column_layout;            // subkey "Colonnes": value n at index n - 1
  Flag full_file_name = Flag::kOff;                  // "UseAlias"
  Flag trace_option = Flag::kOff;  // "RecTrace": when on, a trace alone is enough to resume
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
