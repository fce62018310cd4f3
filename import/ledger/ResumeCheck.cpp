#include "import/ledger/ResumeCheck.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "core/FileLook.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"
#include "import/ledger/Trace.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

bool HoldsSomething(FileSystem& files, const std::string& path) {
  const auto info = LookAt(files, files.Locate(path));
  return info && info->size > 0;
}

std::int32_t CountLines(FileSystem& files, const std::string& path) {
  const auto lines = OpenLinesIfAny(files, path);
  std::int32_t count = 0;
  std::string_view line;
  while (lines && count < std::numeric_limits<std::int32_t>::max() && lines->Next(line)) ++count;
  return count;
}

/// Reads chain and trace together, to their ends.
class Reading {
 public:
  Reading(ChainReader* chain, TraceReader* trace) : chain_(chain), trace_(trace) {}

  void Into(ChainFindings& found) {
    TakeEntry();
    std::int32_t last = 0;
    while (trace_ != nullptr) {
      const auto line = trace_->Next();
      if (!line) break;
      last = line->line_number;
      if (line->failed) ++found.rejections;
      while (entry_ && *entry_ < last) {
        merged_ = false;
        TakeEntry();
      }
      const bool listed = entry_ && *entry_ == last;
      if (listed != line->failed) merged_ = false;
      if (listed) TakeEntry();
    }
    while (entry_) TakeEntry();
    const std::int32_t reached = chain_ == nullptr ? 0 : chain_->reached();
    found.rejected_lines_are_in_chain = chain_ != nullptr && merged_ && last <= reached;
    found.reached = std::max(last, reached);
    found.reached_path = last >= reached ? found.trace_path : found.chain_path;
    if (chain_ == nullptr) return;
    found.mark = chain_->mark();
    found.identity = chain_->identity();
  }

 private:
  void TakeEntry() {
    entry_.reset();
    if (chain_ == nullptr) return;
    if (const auto entry = chain_->Next()) entry_ = entry->line_number;
  }

  ChainReader* chain_;
  TraceReader* trace_;
  std::optional<std::int32_t> entry_;  // the next of the chain
  bool merged_ = true;                 // merging the trace so far would change nothing
};

bool SameName(const std::string& one, const std::string& other) {
  return FoldName(one) == FoldName(other);
}

std::optional<ResumeObstacle> OtherTarget(const ChainIdentity& before, const ChainIdentity& now) {
  if (!SameName(before.scenario, now.scenario) || !SameName(before.task, now.task)) {
    return ResumeObstacle{.kind = ResumeObstacle::Kind::kOtherTask,
                          .before = before.scenario + '\\' + before.task,
                          .now = now.scenario + '\\' + now.task};
  }
  struct Value {
    std::string_view setting;
    const std::string& before;
    const std::string& now;
  };
  for (const Value& value :
       {Value{"Base Cible", before.data_source, now.data_source},
        Value{"Owner", before.owner, now.owner}, Value{"Table", before.table, now.table}}) {
    if (value.before == value.now) continue;
    return ResumeObstacle{.kind = ResumeObstacle::Kind::kOtherTarget,
                          .setting = std::string(value.setting),
                          .before = value.before,
                          .now = value.now};
  }
  return std::nullopt;
}

/// Whether the last run, ended or killed, can have left so many rejected lines.
bool RejectedLinesFit(const ChainFindings& chain) {
  if (chain.rejected_lines == chain.rejections) return true;
  // A rejected line is written before its trace. Only a run that was cut short leaves one untraced.
  if (chain.rejected_lines == chain.rejections + 1) return chain.mark == ChainMark::kNone;
  return chain.rejected_lines == 0 && chain.rejected_lines_are_in_chain;
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

ChainFindings FindChain(FileSystem& files, const RunState& run) {
  ChainFindings found;
  found.trace_path = files.Locate(SideFilePath(run, kTraceExtension));
  found.rejected_path = files.Locate(SideFilePath(run, kRejectedExtension));
  const ResumeChain state(files, SideFilePath(run, kChainExtension));
  found.chain_path = state.path();
  state.RequireOwn();
  const auto chain = state.Open();
  auto lines = OpenLinesIfAny(files, found.trace_path);
  const auto trace =
      lines ? std::make_unique<TraceReader>(std::move(lines), found.trace_path) : nullptr;
  Reading(chain.get(), trace.get()).Into(found);
  found.rejected_lines = CountLines(files, found.rejected_path);
  return found;
}

std::optional<ResumeObstacle> FindObstacle(FileSystem& files, const RunState& run,
                                           const ChainFindings& chain) {
  if (chain.identity) {
    const ChainIdentity now = IdentityOf(files, run);
    if (auto obstacle = OtherTarget(*chain.identity, now)) return obstacle;
    const bool comparable = now.source.size > 0 && !run.takes_changed_source;
    const std::string path = files.Locate(DataFilePath(run));
    if (comparable && !GoesOnFrom(files, chain.identity->source, path)) {
      return ResumeObstacle{.kind = ResumeObstacle::Kind::kOtherSource, .source_now = now.source};
    }
  }
  if (RejectedLinesFit(chain)) return std::nullopt;
  return ResumeObstacle{.kind = ResumeObstacle::Kind::kRejectedLines,
                        .before = std::to_string(chain.rejections),
                        .now = std::to_string(chain.rejected_lines)};
}

RuntimeFault FaultOf(const ResumeObstacle& obstacle, const ChainFindings& chain) {
  constexpr FaultNumber kNumber = FaultNumber::kInvalidFileFormat;
  switch (obstacle.kind) {
    case ResumeObstacle::Kind::kOtherTask:
      return RuntimeFault(kNumber, chain.chain_path + ", \"" + obstacle.before + '"',
                          FaultRemedy::kResumeOtherTask);
    case ResumeObstacle::Kind::kOtherTarget:
      return RuntimeFault(
          kNumber, chain.chain_path + ", \"" + obstacle.setting + "\" = \"" + obstacle.before + '"',
          FaultRemedy::kResumeOtherTask);
    case ResumeObstacle::Kind::kOtherSource:
      return RuntimeFault(kNumber, obstacle.source_now.path, FaultRemedy::kPutOtherSourceBack);
    case ResumeObstacle::Kind::kRejectedLines:
      break;
  }
  return RuntimeFault(
      kNumber,
      chain.rejected_path + ", " + obstacle.now + "; " + chain.trace_path + ", " + obstacle.before,
      FaultRemedy::kPutRejectedLinesRight);
}

}  // namespace imptable
