#include "host/RunOutcome.h"

namespace imptable {
namespace {

std::string EndingLine(const RunOutcome& outcome, const HostTexts& texts) {
  const auto text = [&](HostText id, const std::string& second, const std::string& third) {
    return texts.Text(id, {outcome.task, second, third});
  };
  const std::string& files = outcome.side_files;
  const std::string& report = outcome.report;
  switch (outcome.ending) {
    case RunEnding::kDone:
      return {};
    case RunEnding::kRejected:
    case RunEnding::kErrorLimit:
      return text(outcome.can_resume ? HostText::kRejectedResume : HostText::kRejected,
                  texts.Number(outcome.progress.errors), files);
    case RunEnding::kNoConnection:
      return text(HostText::kConnectionRefused, outcome.data_source, report);
    case RunEnding::kModeFaulted:
      return text(outcome.can_resume ? HostText::kModeFaultedResume : HostText::kModeFaulted,
                  outcome.fault, report);
    case RunEnding::kDeletionFailed:
      return text(HostText::kDeletionFailed, report, {});
    case RunEnding::kErrors:
      return outcome.has_error_file ? text(HostText::kOtherErrors, files, report)
                                    : text(HostText::kReportedErrors, report, {});
    case RunEnding::kStopped:
      return text(HostText::kRunStopped,
                  outcome.fault.empty() ? texts.Text(HostText::kUnknownFault) : outcome.fault,
                  report);
    case RunEnding::kInterrupted:
      return text(outcome.can_resume ? HostText::kInterruptedResume : HostText::kInterruptedAfresh,
                  texts.Number(outcome.progress.read), {});
  }
  return {};
}

}  // namespace

RunEnding EndingOf(const RunState& run, bool connected) {
  if (run.interrupted) return RunEnding::kInterrupted;
  switch (run.status) {
    case RunStatus::kNone:
    case RunStatus::kRunning:
      return RunEnding::kStopped;
    case RunStatus::kSucceeded:
      return RunEnding::kDone;
    case RunStatus::kFailed:
      break;
  }
  if (!connected) return RunEnding::kNoConnection;
  if (run.fault) return RunEnding::kModeFaulted;
  if (run.pre_deletion_failed) return RunEnding::kDeletionFailed;
  if (run.progress.errors == 0) return RunEnding::kErrors;
  return run.progress.errors > run.error_limit ? RunEnding::kErrorLimit : RunEnding::kRejected;
}

ExitCode ExitCodeOf(const RunOutcome& outcome) {
  if (outcome.ending == RunEnding::kInterrupted) return ExitCode::kInterrupted;
  if (outcome.report_failed || outcome.registry_failure) return ExitCode::kFault;
  if (outcome.ending == RunEnding::kStopped) return ExitCode::kFault;
  return outcome.ending == RunEnding::kDone ? ExitCode::kDone : ExitCode::kRunFailed;
}

std::optional<std::string> ErrorLineOf(const RunOutcome& outcome, const HostTexts& texts) {
  if (ExitCodeOf(outcome) == ExitCode::kDone) return std::nullopt;
  std::string line = EndingLine(outcome, texts);
  if (outcome.ending == RunEnding::kInterrupted) return line;
  const auto add = [&line](const std::string& text) { line += (line.empty() ? "" : "; ") + text; };
  if (outcome.report_failed) add(texts.Text(HostText::kReportFailed, {outcome.report}));
  if (outcome.registry_failure) {
    add(texts.Text(HostText::kRegistryWriteFailed, {outcome.task, *outcome.registry_failure}));
  }
  return line;
}

}  // namespace imptable
