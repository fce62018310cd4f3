#include "import/ledger/ResumeRule.h"

#include "core/FileLook.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"

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
  if (run.record_errors == Flag::kOff) return false;
  const auto chain = ResumeChain(files, SideFilePath(run, kChainExtension)).state();
  if (chain == ResumeChain::State::kVoid) return false;
  if (chain == ResumeChain::State::kOpen) return true;
  if (!HoldsSomething(files, SideFilePath(run, kTraceExtension))) return false;
  return run.trace_option == Flag::kOn ||
         HoldsSomething(files, SideFilePath(run, kRejectedExtension));
}

}  // namespace imptable
