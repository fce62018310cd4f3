#ifndef CORE_IMPORT_SETTINGS_H_
#define CORE_IMPORT_SETTINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// One task's parameters as stored; "@" references are not resolved.
struct ImportSettings {
  std::string data_source;                 // "Base Cible"
  std::string login;                       // "Login"
  std::string password;                    // "Password"
  std::string owner;                       // "Owner"
  std::string table;                       // "Table"
  std::string alias;                       // "Alias"
  std::string comment;                     // "Comment"
  std::string directory;                   // "Dir"
  std::int16_t mode = 0;                   // "Mode"
  std::int16_t deletion_mode = 0;          // "Suppression"
  std::string error_limit;                 // "Erreurs", default "100"
  std::int16_t record_errors = 1;          // "RecErreurs"
  std::string key_or_index;                // "Cle/Index"
  std::int16_t primary_key = 0;            // "PrimKey"
  std::int16_t duplicate_key = 0;          // "DupKey"
  std::string error_code;                  // "CodErr"
  std::int16_t empty_file_policy = 0;      // "SiVide"
  std::int16_t separator_option = 0;       // "SepDec"
  std::int16_t null_option = 0;            // "Null"
  std::int16_t parameter_option = 0;       // "Param"
  std::int16_t column_count = 0;           // "NombreColonnes"
  std::string delimiter;                   // "DelimiteurFile", default ";"
  std::int16_t delimited = 0;              // "FormatFile"
  std::vector<std::string> column_layout;  // subkey "Colonnes": value n at index n - 1
  std::int16_t full_file_name = 0;         // "UseAlias"
  std::int16_t trace_option = 0;  // "RecTrace": 1 when a trace alone is enough for a resume
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
