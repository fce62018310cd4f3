#include "host/run/RunStart.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/FileLook.h"
#include "host/HostError.h"
#include "host/run/OwnCommand.h"
#include "import/ledger/ReplacingFile.h"
#include "import/ledger/ResumeOutlook.h"
#include "import/source/LineReader.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskLoading.h"

namespace imptable {
namespace {

constexpr std::string_view kOldSuffix = ".OLD";

/// Copies the lines of a file, each with a line end. A missing file has no lines.
/// @throws RuntimeFault  the file fault.
void CopyLines(FileSystem& files, const std::string& from, RunFile& to) {
  if (!LookAt(files, from)) return;
  std::error_code error;
  auto file = files.OpenForReading(from, error);
  if (!file) throw FileFault(error, from);
  LineReader lines(std::move(file), from, false);
  for (std::string_view line; lines.Next(line);) {
    to.Write(std::string(line) + std::string(SystemLineEnd()));
  }
}

/// Whether a file ends with the whole content of another file.
/// @throws RuntimeFault  the file fault.
bool EndsWithFile(FileSystem& files, const std::string& path, const std::string& end) {
  const auto whole = LookAt(files, path);
  const auto part = LookAt(files, end);
  if (!whole || !part || whole->size < part->size) return false;
  std::error_code error;
  const auto file = files.OpenForReading(path, error);
  if (!file) throw FileFault(error, path);
  error = file->Skip(whole->size - part->size);
  if (error) throw FileFault(error, path);
  const auto expected = files.OpenForReading(end, error);
  if (!expected) throw FileFault(error, end);
  constexpr std::size_t kBlockBytes = 4096;
  std::array<char, kBlockBytes> left{};
  std::array<char, kBlockBytes> right{};
  for (;;) {
    const std::size_t got = expected->Read(right.data(), right.size(), error);
    if (error) throw FileFault(error, end);
    if (got == 0) return true;
    for (std::size_t taken = 0; taken < got;) {
      const std::size_t more = file->Read(left.data() + taken, got - taken, error);
      if (error) throw FileFault(error, path);
      if (more == 0) return false;
      taken += more;
    }
    if (!std::equal(right.begin(), right.begin() + static_cast<std::ptrdiff_t>(got), left.begin()))
      return false;
  }
}

class Decision {
 public:
  Decision(HostContext& context, const CommandRequest& request)
      : context_(context), request_(request), module_(context.state.commun) {}

  RunStart Make() {
    Load();
    outlook_ = Look();
    if (outlook_.answer == ResumeAnswer::kResumes) {
      if (module_.opened_task) module_.opened_task->resumes = true;
      return {.resumes = true};
    }
    if (!request_.automatic) throw Refusal();
    if (outlook_.answer == ResumeAnswer::kNothing) return {};
    if (IsEndOfChainWithAnotherSource()) return {.resumes = false, .given_up = GiveUp()};
    throw Refusal();
  }

 private:
  void Load() {
    module_.location = TasksKey(request_.scenario);
    TakeTask(module_, module_.opened_task ? *module_.opened_task
                                          : OpenTask(module_, request_.scenario, request_.task));
  }

  ResumeOutlook Look() {
    try {
      return LookAtResume(module_);
    } catch (const RuntimeFault& fault) {
      throw HostError(ExitCode::kFault, HostText::kResumeDamaged,
                      {request_.task, module_.FaultText(fault)});
    }
  }

  bool IsEndOfChainWithAnotherSource() const {
    return outlook_.obstacle && outlook_.obstacle->kind == ResumeObstacle::Kind::kOtherSource &&
           outlook_.chain.mark == ChainMark::kRead;
  }

  std::string GiveUp() {
    const std::string count = context_.texts.Number(outlook_.chain.rejected_lines);
    if (outlook_.chain.rejected_lines == 0) {
      return context_.texts.Text(HostText::kChainGivenUp,
                                 {request_.task, outlook_.source_path, count});
    }
    const std::string& from = outlook_.chain.rejected_path;
    const std::string to = from + std::string(kOldSuffix);
    try {
      // An earlier run may have kept these lines already, and then come no further.
      if (!EndsWithFile(*context_.files, to, from)) AddTo(to, from);
    } catch (const RuntimeFault& fault) {
      throw HostError(ExitCode::kFault, HostText::kCannotKeepRejected,
                      {request_.task, from, module_.FaultText(fault)});
    }
    return context_.texts.Text(HostText::kChainGivenUpKept,
                               {request_.task, outlook_.source_path, count, to});
  }

  /// Keeps the lines that are in the file already: nobody may have looked at them yet.
  void AddTo(const std::string& to, const std::string& from) {
    CopiedFile source(*context_.files, from);
    ReplacingFile copy(*context_.files, to + ".NEW");
    CopyLines(*context_.files, to, copy.file());
    source.CopyTo(copy.file());
    copy.Replace(to);
  }

  HostError Missing(HostText text, std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), request_.task);
    return {ExitCode::kMissing, text, std::move(arguments)};
  }

  std::string ResumeCommand() const { return RunCommandFor(request_, "--resume"); }

  HostError Refusal() const {
    const ChainFindings& chain = outlook_.chain;
    const std::string reached = context_.texts.Number(chain.reached);
    switch (outlook_.answer) {
      case ResumeAnswer::kResumes:
      case ResumeAnswer::kDone:
        return Missing(HostText::kAllIsDone, {outlook_.source_path});
      case ResumeAnswer::kNothing:
        if (outlook_.succeeded) return Missing(HostText::kLastRunSucceeded, {});
        return Missing(HostText::kNothingToResume, {chain.trace_path});
      case ResumeAnswer::kOptionOff:
        return Missing(HostText::kResumeOptionOff,
                       {reached, chain.reached_path, SetCommandFor(request_, "RecErreurs=1"),
                        ResumeCommand()});
      case ResumeAnswer::kNeedsTraceOption:
        return Missing(
            HostText::kResumeNeedsTrace,
            {reached, chain.reached_path, SetCommandFor(request_, "RecTrace=1"), ResumeCommand()});
      case ResumeAnswer::kNoSource:
        return Missing(HostText::kResumeNoSource, {outlook_.source_path});
      case ResumeAnswer::kEmptySource:
        return Missing(HostText::kResumeEmptySource, {outlook_.source_path});
      case ResumeAnswer::kModeImportsNothing:
        return Missing(HostText::kResumeImportsNothing,
                       {std::to_string(static_cast<int>(module_.run.mode)), outlook_.source_path});
      case ResumeAnswer::kObstacle:
        break;
    }
    return ObstacleRefusal(*outlook_.obstacle);
  }

  HostError ObstacleRefusal(const ResumeObstacle& obstacle) const {
    const ChainFindings& chain = outlook_.chain;
    switch (obstacle.kind) {
      case ResumeObstacle::Kind::kOtherTask:
        return Missing(HostText::kResumeOtherTask, {chain.chain_path, obstacle.before});
      case ResumeObstacle::Kind::kOtherTarget:
        return Missing(HostText::kResumeOtherTarget,
                       {chain.chain_path, obstacle.setting, obstacle.before, obstacle.now});
      case ResumeObstacle::Kind::kRejectedLines:
        return Missing(HostText::kResumeRejectedLines,
                       {chain.rejected_path, obstacle.now, obstacle.before, chain.trace_path});
      case ResumeObstacle::Kind::kOtherSource:
        break;
    }
    const SourceIdentity& before = chain.identity->source;
    const SourceIdentity& now = obstacle.source_now;
    return Missing(
        HostText::kResumeOtherSource,
        {outlook_.source_path, context_.texts.Number(static_cast<std::int64_t>(before.size)),
         TimeText(before.modified), context_.texts.Number(static_cast<std::int64_t>(now.size)),
         TimeText(now.modified)});
  }

  HostContext& context_;
  const CommandRequest& request_;
  ModuleCommun& module_;
  ResumeOutlook outlook_;
};

}  // namespace

RunStart DecideStart(HostContext& context, const CommandRequest& request) {
  context.state.commun.run.takes_changed_source = request.changed_file;
  context.state.commun.run.requires_file = request.require_file;
  if (!request.resume && !request.automatic) return {};
  return Decision(context, request).Make();
}

}  // namespace imptable
