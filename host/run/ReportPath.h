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

/// A report is appended to, so it may be none of the run's own files, be it by another path,
/// through a link, or by a name that differs in case only. One that nobody asked for by its name
/// isn't written to a pipe either, which may have no reader.
/// @param files  as FilesOfRun has them.
/// @throws HostError  wrong usage, which names both.
void RequireReportOfItsOwn(const std::string& report, ReportName name,
                           const std::vector<std::string>& files, const FileSystem& file_system,
                           const TextEncoding& encoding);

/// @throws HostError  wrong usage, when a file to be written is the registry or one beside it.
void RequireNoRegistryFile(const std::string& path, const std::string& registry_path,
                           const FileSystem& file_system, const TextEncoding& encoding);

}  // namespace imptable

#endif  // HOST_RUN_REPORT_PATH_H_
