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

/// A directory as names are appended to it: it ends with the path separator.
std::string FolderOf(std::string directory);

/// Path of the source file: the directory, the alias without its trailing blanks, and ".CSV" unless
/// the task says that the alias is the complete file name.
std::string DataFilePath(const OpenedTask& task);

/// Path of a side file: the alias without its trailing blanks, wherever a run names one.
std::string SideFilePath(const OpenedTask& task, std::string_view extension);

}  // namespace imptable

#endif  // IMPORT_LEDGER_TASK_FILES_H_
