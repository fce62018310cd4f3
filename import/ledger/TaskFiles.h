#ifndef IMPORT_LEDGER_TASK_FILES_H_
#define IMPORT_LEDGER_TASK_FILES_H_

#include <string>
#include <string_view>

#include "core/RunState.h"

namespace imptable {

// Extensions of a task's files, upper case as written.
inline constexpr std::string_view kDataExtension = ".CSV";
inline constexpr std::string_view kErrorExtension = ".ERR";
inline constexpr std::string_view kRejectedExtension = ".LER";
inline constexpr std::string_view kTraceExtension = ".TRC";
inline constexpr std::string_view kRejectedCopyExtension = ".LEB";
inline constexpr std::string_view kTraceCopyExtension = ".TRB";
inline constexpr std::string_view kChainExtension = ".REP";
inline constexpr std::string_view kSelectionExtension = ".SUP";

/// The directory with the path separator at its end, so that names can be appended.
std::string FolderOf(std::string directory);

/// Path of the source file: the directory, the alias without its trailing blanks, and ".CSV" unless
/// the task says that the alias is the complete file name.
std::string DataFilePath(const OpenedTask& task);

/// Path of a side file: the directory, the alias without its trailing blanks, and the extension.
std::string SideFilePath(const OpenedTask& task, std::string_view extension);

}  // namespace imptable

#endif  // IMPORT_LEDGER_TASK_FILES_H_
