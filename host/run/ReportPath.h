#ifndef HOST_RUN_REPORT_PATH_H_
#define HOST_RUN_REPORT_PATH_H_

#include <string>
#include <vector>

#include "core/RunState.h"
#include "platform/files/FileSystem.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// Every file that a run reads or writes beside its report: the data file, its side files, the
/// selection file and the lock, and the registry file with what SQLite keeps beside it. They need
/// not exist.
std::vector<std::string> FilesOfRun(const OpenedTask& task, const std::string& registry_path);

enum class ReportName { kGiven, kDefault };

/// Refuses a report that is one of the run's own files, also by another path, through a link, or by
/// a name that differs only in case: the run would append to it. Refuses a named pipe, too. A
/// report that the user didn't name may be no pipe or device of any kind: there may be no reader.
/// @param files  as FilesOfRun has them.
/// @throws HostError  wrong usage, naming the report and the file that it is.
void RequireReportOfItsOwn(const std::string& report, ReportName name,
                           const std::vector<std::string>& files, const FileSystem& file_system,
                           const TextEncoding& encoding);

/// @throws HostError  wrong usage, when `path` is the registry file or a file that SQLite keeps
/// beside it.
void RequireNoRegistryFile(const std::string& path, const std::string& registry_path,
                           const FileSystem& file_system, const TextEncoding& encoding);

}  // namespace imptable

#endif  // HOST_RUN_REPORT_PATH_H_
