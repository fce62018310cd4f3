#include "host/run/RunOutcome.h"

namespace imptable {
namespace {

HostText FaultedText(NextStep next) {
  switch (next) {
    case NextStep::kResume:
      return HostText::kModeFaultedResume;
    case NextStep::kTraceThenResume:
      return HostText::kModeFaultedTrace;
    case NextStep::kNone:
    case NextStep::kAfresh:
      break;
  }
  return HostText::kModeFaulted;
}

HostText InterruptedText(NextStep next) {
  switch (next) {
    case NextStep::kResume:
      return HostText::kInterruptedResume;
    case NextStep::kTraceThenResume:
      return HostText::kInterruptedTrace;
    case NextStep::kAfresh:
      return HostText::kInterruptedAfresh;
    case NextStep::kNone:
      break;
  }
  return HostText::kInterruptedUntraced;
}

std::string EndingLine(const RunOutcome& outcome, const HostTexts& texts) {
  const auto text = [&](HostText id, const std::string& second, const std::string& third) {
    return texts.Text(
        id, {outcome.task, second, third, outcome.set_trace_command, outcome.resume_command});
  };
  const std::string& files = outcome.side_files;
  const std::string& report = outcome.report;
  switch (outcome.ending) {
    case RunEnding::kDone:
      return {};
    case RunEnding::kRejected:
    case RunEnding::kErrorLimit:
      return text(
          outcome.next == NextStep::kResume ? HostText::kRejectedResume : HostText::kRejected,
          texts.Number(outcome.progress.lines[Outcome::kRejected]), files);
    case RunEnding::kNoConnection:
      return text(HostText::kConnectionRefused, outcome.data_source, report);
    case RunEnding::kModeFaulted:
      return text(FaultedText(outcome.next), outcome.fault, report);
    case RunEnding::kDeletionFailed:
      return text(HostText::kDeletionFailed, report, {});
    case RunEnding::kErrors:
      return outcome.has_error_file ? text(HostText::kOtherErrors, files, report)
                                    : text(HostText::kReportedErrors, report, {});
    case RunEnding::kStopped:
      return text(
          outcome.next == NextStep::kAfresh ? HostText::kRunStopped : HostText::kRunStoppedGoOn,
          outcome.fault.empty() ? texts.Text(HostText::kUnknownFault) : outcome.fault, report);
    case RunEnding::kNoFile:
      return text(HostText::kRequiredFileMissing, outcome.source_path, {});
    case RunEnding::kInterrupted:
      return texts.Text(InterruptedText(outcome.next),
                        {outcome.task, texts.Number(outcome.progress.read),
                         outcome.set_trace_command, outcome.resume_command});
  }
  return {};
}

/// What to do next after a run that isn't recorded as done; empty when there is nothing to say.
std::string GoOnText(const RunOutcome& outcome, const HostTexts& texts) {
  switch (outcome.next) {
    case NextStep::kNone:
    case NextStep::kAfresh:
      return {};
    case NextStep::kResume:
      return texts.Text(HostText::kGoOnByResume);
    case NextStep::kTraceThenResume:
      return texts.Text(HostText::kGoOnByTrace,
                        {outcome.set_trace_command, outcome.resume_command});
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
  if (run.progress.lines[Outcome::kRejected] == 0) return RunEnding::kErrors;
  return run.progress.lines[Outcome::kRejected] > run.most_errors ? RunEnding::kErrorLimit
                                                                  : RunEnding::kRejected;
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
  const bool unsaid = outcome.ending == RunEnding::kStopped || outcome.ending == RunEnding::kDone;
  const std::string go_on = unsaid ? GoOnText(outcome, texts) : std::string();
  if (!go_on.empty()) add(go_on);
  return line;
}

}  // namespace imptable
