#ifndef DIALOGS_COLUMNS_SOURCE_FILE_H_
#define DIALOGS_COLUMNS_SOURCE_FILE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/ModuleCommun.h"

namespace imptable {

/// The dialog's fields that say where the source file is and how it is split, as typed.
struct SourceFields {
  std::string directory;       // txtRep
  std::string alias;           // txtAlias
  bool complete_name = false;  // OptCsv(1) is selected
  std::string separator;       // txtDelimiteurFile
};

/// How much of a source file is read to look at its first line, in bytes.
inline constexpr std::size_t kFileStartBytes = std::size_t{1} << 20U;

/// The start of a source file.
struct FileStart {
  std::string path;
  bool is_empty = false;    // no byte except a byte order mark
  std::string line;         // the first one, without its end
  bool is_complete = true;  // false: the line goes on beyond kFileStartBytes
};

/// Path of the source file that the fields name, "@" references resolved; empty when there is no
/// alias.
/// @throws RuntimeFault  no such host object.
std::string SourceFilePath(const ModuleCommun& module, const std::string& scenario,
                           const SourceFields& fields);

/// Reads the start of the source file.
/// @return nullopt when the fields name no file or there is none.
/// @throws RuntimeFault  when it can't be read; no such host object.
std::optional<FileStart> ReadFileStart(const ModuleCommun& module, const std::string& scenario,
                                       const SourceFields& fields);

/// The number of fields of a line. As in the import, the separator is looked for at every
/// character, so separators of several characters may overlap.
/// @param separator  an empty one counts as ";", as it does when a task is loaded.
std::size_t CountFields(std::string_view line, std::string_view separator, bool utf8);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_SOURCE_FILE_H_
