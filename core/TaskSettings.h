#ifndef CORE_TASK_SETTINGS_H_
#define CORE_TASK_SETTINGS_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/ModuleCommun.h"

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
};

/// Loads the settings of a task below the current registry location. An absent, empty or
/// unreadable value takes its default.
/// @throws RuntimeFault  type mismatch or overflow when a numeric value is no 16-bit number, or
/// "NombreColonnes" is negative.
ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task);

/// The same for whoever can mend the task: a faulty number takes its default and its fault is added
/// to `faults`.
/// @throws RuntimeFault  device error, when the registry can't be read.
ImportSettings LoadSettings(const ModuleCommun& module, std::string_view task,
                            std::vector<RuntimeFault>& faults);

/// "RecTrace", which is no part of the settings that a host knows: 1 when a trace alone is enough
/// for a resume, default 0.
/// @throws RuntimeFault  as LoadSettings.
std::int16_t LoadTraceOption(const ModuleCommun& module, std::string_view task);

/// The values of "Champs", in the order of the registry.
/// @throws RuntimeFault  device error, when the registry can't be read.
std::vector<StoredAssignment> LoadAssignments(const ModuleCommun& module, std::string_view task);

/// Where the password would be decoded; stored in clear, it is passed on unchanged.
std::string TransformPassword(std::string password);

/// True for a text that names a scenario variable instead of being a literal.
inline bool IsVariableReference(std::string_view text) { return text.starts_with('@'); }

}  // namespace imptable

#endif  // CORE_TASK_SETTINGS_H_
