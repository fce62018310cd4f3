#include "plugin/ResumeRule.h"

#include "import/ResumeChain.h"
#include "import/TaskFiles.h"
#include "plugin/core/FileLook.h"

namespace imptable {
namespace {

bool HoldsSomething(FileSystem& files, const std::string& path) {
  const auto info = LookAt(files, files.Locate(path));
  return info && info->size > 0;
}

}  // namespace

bool IsNotEmpty(const FileSystem& files, const std::string& path) {
  const auto info = files.Query(files.Locate(path));
  return info && info->size > 0;
}

bool CanResume(FileSystem& files, const RunState& run) {
  if (run.resume_option == 0) return false;
  const auto chain = ResumeChain(files, StoredSideFilePath(run, kChainExtension)).state();
  if (chain == ResumeChain::State::kVoid) return false;
  const bool traced = HoldsSomething(files, StoredSideFilePath(run, kTraceExtension));
  if (run.trace_option == 1) return traced || chain == ResumeChain::State::kOpen;
  return traced && HoldsSomething(files, StoredSideFilePath(run, kRejectedExtension));
}

}  // namespace imptable
