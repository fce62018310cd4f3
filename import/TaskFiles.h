#ifndef IMPORT_TASK_FILES_H_
#define IMPORT_TASK_FILES_H_

#include <string>
#include <string_view>

#include "plugin/core/RunState.h"

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

/// Path of the source file: the directory, the alias without its trailing blanks, and ".CSV" unless
/// the alias is the complete file name.
std::string DataFilePath(const RunState& run, bool complete_name);

/// Path of a side file as the import opens it: the alias without its trailing blanks.
std::string SideFilePath(const RunState& run, std::string_view extension);

/// The same with the alias exactly as stored, trailing blanks included: what the run driver deletes
/// and what it decides a resume by. The asymmetry is the host's contract: never change.
std::string StoredSideFilePath(const RunState& run, std::string_view extension);

}  // namespace imptable

#endif  // IMPORT_TASK_FILES_H_
