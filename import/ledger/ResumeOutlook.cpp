#include "import/ledger/ResumeOutlook.h"

#include "core/FileLook.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/ResumeCheck.h"
#include "import/ledger/TaskFiles.h"
#include "import/source/LineReader.h"

namespace imptable {
namespace {

bool HasSucceeded(const ModuleCommun& module) {
  const auto etat = AsInt32(module.ReadValue(module.run.task, "Etat", 0), "Etat");
  return etat == static_cast<std::int32_t>(RunStatus::kSucceeded);
}

/// Whether the source is the one that the chain has read, with nothing added since.
bool IsSourceOf(FileSystem& files, const RunState& run, const ChainFindings& chain) {
  if (!chain.identity || FindObstacle(files, run, chain)) return false;
  return IdentityOf(files, run).source.size == chain.identity->source.size;
}

}  // namespace

ResumeOutlook LookAtResume(ModuleCommun& module) {
  const RunState& run = module.run;
  FileSystem& files = module.platform.files;
  ResumeOutlook outlook;
  outlook.source_path = files.Locate(DataFilePath(run));
  outlook.chain = FindChain(files, run);
  const auto state = ResumeChain(files, SideFilePath(run, kChainExtension)).state();
  const bool open = state == ResumeChain::State::kOpen;
  const bool traced = IsNotEmpty(files, outlook.chain.trace_path);
  outlook.succeeded = HasSucceeded(module);
  if (state == ResumeChain::State::kVoid || !(open || traced)) return outlook;
  // The last run did every line and stored its success. It only died before it deleted its trace.
  if (outlook.succeeded && outlook.chain.mark == ChainMark::kRead &&
      outlook.chain.rejections == 0) {
    if (IsSourceOf(files, run, outlook.chain)) outlook.answer = ResumeAnswer::kDone;
    return outlook;
  }
  outlook.answer = [&] {
    if (run.record_errors == Flag::kOff) return ResumeAnswer::kOptionOff;
    const auto source = LookAt(files, outlook.source_path);
    if (!source) return ResumeAnswer::kNoSource;
    if (source->is_file &&
        HasNoLine(files, outlook.source_path, source->size, module.platform.encoding.IsUtf8())) {
      return ResumeAnswer::kEmptySource;
    }
    if (!ImportsAnything(run.mode)) return ResumeAnswer::kModeImportsNothing;
    outlook.obstacle = FindObstacle(files, run, outlook.chain);
    if (outlook.obstacle) return ResumeAnswer::kObstacle;
    return CanResume(files, run) ? ResumeAnswer::kResumes : ResumeAnswer::kNeedsTraceOption;
  }();
  return outlook;
}

}  // namespace imptable
