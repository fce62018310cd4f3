#include "plugin/ResumeRule.h"

#include "import/TaskFiles.h"

namespace imptable {

bool IsNotEmpty(const FileSystem& files, const std::string& path) {
  const auto info = files.Query(files.Locate(path));
  return info && info->size > 0;
}

bool CanResume(const FileSystem& files, const RunState& run) {
  return run.resume_option != 0 && IsNotEmpty(files, StoredSideFilePath(run, kTraceExtension)) &&
         IsNotEmpty(files, StoredSideFilePath(run, kRejectedExtension));
}

}  // namespace imptable
