#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/LiveDisplay.h"
#include "host/LiveLine.h"
#include "host/RegistryFailureText.h"
#include "host/RunOutcome.h"
#include "host/RunSummary.h"
#include "host/StopSignals.h"
#include "host/TaskLock.h"
#include "import/TaskFiles.h"
#include "plugin/ImpTable.h"
#include "plugin/ResumeOutlook.h"
#include "plugin/ResumeRule.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::int16_t kFreshRequest = 1;

double SecondsSince(SteadyClock::time_point start) {
  return std::chrono::duration<double>(SteadyClock::now() - start).count();
}

/// Redraws the live line at every sign of progress.
class RunWatcher : public ImpTableEvents {
 public:
  /// @param progress  borrowed.
  /// @param line  borrowed; null when nothing is to be shown.
  RunWatcher(const RunProgress& progress, LiveLine* line) : progress_(progress), line_(line) {}

  void Progress() override {
    // Connecting and deleting come before the first line and say nothing about its speed.
    if (progress_.read == 0) first_line_ = SteadyClock::now();
    if (line_ != nullptr) line_->Draw(progress_, SecondsSince(first_line_));
  }

  void Complete() override {
    if (line_ != nullptr) line_->Remove();
  }

 private:
  const RunProgress& progress_;
  LiveLine* line_;
  SteadyClock::time_point first_line_ = SteadyClock::now();
};

/// TASK.txt in the current directory, whatever the task's name holds.
std::string DefaultReportPath(std::string task) {
  std::replace(task.begin(), task.end(), '/', '_');
  return task + ".txt";
}

void RefuseSurprisingResume(HostContext& context, const CommandRequest& request) {
  const ResumeOutlook outlook =
      LookAtResume(context.state, TasksKey(request.scenario), request.scenario, request.task);
  if (outlook.resumes || outlook.traced_lines == 0) return;
  throw HostError(ExitCode::kMissing, HostText::kResumeRefused,
                  {request.task, context.texts.Number(outlook.traced_lines), outlook.trace_path});
}

void RequireWritableReport(HostContext& context, const std::string& path) {
  std::error_code error;
  const auto file = context.files->OpenForWriting(path, WriteMode::kAppend, error);
  if (file) return;
  const bool is_link = error == std::errc::too_many_symbolic_link_levels;
  throw HostError(ExitCode::kFault, HostText::kCannotOpenReport,
                  {path, is_link ? context.texts.Text(HostText::kIsForeignLink) : error.message()});
}

/// What a resume goes by may be out of sight for now; then the resume itself says so.
bool MayResume(FileSystem& files, const RunState& run) {
  try {
    return CanResume(files, run);
  } catch (const RuntimeFault&) {
    return true;
  }
}

RunOutcome OutcomeOf(const HostContext& context, const CommandRequest& request,
                     const std::string& report, double seconds) {
  const ModuleCommun& module = context.state.commun;
  const RunState& run = module.run;
  RunOutcome outcome;
  outcome.scenario = request.scenario;
  outcome.task = request.task;
  outcome.ending = EndingOf(run, context.state.odbc.connected);
  outcome.status = run.status;
  outcome.progress = run.progress;
  outcome.seconds = seconds;
  outcome.report = report;
  outcome.data_source = run.data_source;
  outcome.side_files = SideFilePath(run, "");
  outcome.has_error_file = IsNotEmpty(*context.files, SideFilePath(run, kErrorExtension));
  outcome.has_rejected_file = IsNotEmpty(*context.files, SideFilePath(run, kRejectedExtension));
  outcome.can_resume = MayResume(*context.files, run);
  if (run.fault) outcome.fault = module.FaultText(*run.fault);
  outcome.report_failed = context.library.report_failed();
  if (const auto& failure = context.registry.last_write_failure()) {
    outcome.registry_failure = RegistryFailureText(*failure, context.texts);
  }
  return outcome;
}

}  // namespace

ExitCode RunTask(HostContext& context, const CommandRequest& request, const HostConsole& console) {
  context.RequireTask(request.scenario, request.task);
  const TaskLock lock(context, request);
  if (request.resume) RefuseSurprisingResume(context, request);
  const std::string report = request.report.value_or(DefaultReportPath(request.task));
  RequireWritableReport(context, report);

  RunState& run = context.state.commun.run;
  std::optional<LiveLine> line;
  if (console.terminal != nullptr && !request.quiet && !request.json) {
    line.emplace(console.out, *console.terminal, context.texts);
  }
  RunWatcher watcher(run.progress, line ? &*line : nullptr);
  LiveDisplay display;
  const SteadyClock::time_point start = SteadyClock::now();
  const StopSignals signals(run.stop_requested);
  {
    ImpTable task(context.state, &watcher);
    task.InitializeProperties(request.task, request.scenario, OffsetOf(context.texts.language()));
    task.SetReportFilePath(report);
    task.Bouton = &display;
    task.Run(request.resume ? kResumeRequest : kFreshRequest);
  }
  line.reset();

  const RunOutcome outcome = OutcomeOf(context, request, report, SecondsSince(start));
  if (request.json) {
    console.out << SummaryJson(outcome, *context.encoding);
  } else if (!request.quiet) {
    console.out << SummaryText(outcome, context.texts, console.colours);
  }
  console.out.flush();
  if (const std::optional<std::string> error = ErrorLineOf(outcome, context.texts)) {
    PrintErrorLine(console.err, *error);
  }
  return ExitCodeOf(outcome);
}

}  // namespace imptable
