#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/RegistryFailureText.h"
#include "host/run/LiveLine.h"
#include "host/run/OwnCommand.h"
#include "host/run/ReportPath.h"
#include "host/run/RunOutcome.h"
#include "host/run/RunStart.h"
#include "host/run/RunSummary.h"
#include "host/run/RunWarnings.h"
#include "host/run/StopSignals.h"
#include "host/run/TaskLock.h"
#include "host/run/TaskOpening.h"
#include "import/ledger/ResumeCheck.h"
#include "import/ledger/TaskFiles.h"
#include "plugin/ImpTable.h"

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
    // The speed is that of the lines alone: connecting and deleting come before them.
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

/// TASK.txt in the current directory. A "/" in the task's name becomes "_".
std::string DefaultReportPath(std::string task) {
  std::replace(task.begin(), task.end(), '/', '_');
  return task + ".txt";
}

void RequireWritableReport(HostContext& context, const std::string& path) {
  std::error_code error;
  const auto file = context.files->OpenForWriting(path, WriteMode::kAppend, error);
  if (file) return;
  const bool is_link = error == std::errc::too_many_symbolic_link_levels;
  throw HostError(ExitCode::kFault, HostText::kCannotOpenReport,
                  {path, is_link ? context.texts.Text(HostText::kIsForeignLink) : error.message()});
}

/// Advises a resume also when the files that it needs can't be read now: the resume says what is
/// wrong.
NextStep NextStepOf(FileSystem& files, const RunState& run) {
  if (!run.resume && run.progress.read == 0) return NextStep::kAfresh;
  // A resume doesn't finish a deletion that broke off.
  if (run.record_errors == Flag::kOff || run.deletion_faulted) return NextStep::kNone;
  try {
    if (CanResume(files, run)) return NextStep::kResume;
    return IsNotEmpty(files, SideFilePath(run, kTraceExtension)) ? NextStep::kTraceThenResume
                                                                 : NextStep::kNone;
  } catch (const RuntimeFault&) {
    return NextStep::kResume;
  }
}

std::vector<std::string> SideFilesOf(const FileSystem& files, const RunState& run) {
  std::vector<std::string> there;
  for (const std::string_view extension :
       {kErrorExtension, kRejectedExtension, kTraceExtension, kRejectedCopyExtension,
        kTraceCopyExtension, kChainExtension}) {
    std::string path = files.Locate(SideFilePath(run, extension));
    if (files.Query(path)) there.push_back(std::move(path));
  }
  return there;
}

std::int64_t SecondsSince1970() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::seconds>(now).count();
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
  outcome.next = NextStepOf(*context.files, run);
  outcome.set_trace_command = SetCommandFor(request, "RecTrace=1");
  outcome.resume_command = RunCommandFor(request, "--resume");
  outcome.resumed = run.resume;
  outcome.source_path = context.files->Locate(DataFilePath(run));
  outcome.source_state = run.source_state;
  outcome.table = run.table;
  outcome.mode = run.mode;
  outcome.ended = SecondsSince1970();
  outcome.started = outcome.ended - static_cast<std::int64_t>(seconds);
  outcome.files = SideFilesOf(*context.files, run);
  const bool missing = run.source_state == SourceState::kMissing;
  if (request.require_file && missing && outcome.ending == RunEnding::kErrors) {
    outcome.ending = RunEnding::kNoFile;
  }
  if (run.fault) outcome.fault = module.FaultText(*run.fault);
  outcome.report_failed = context.library.report_failed();
  const auto& failure = context.registry.last_write_failure();
  // An earlier write that failed doesn't matter once the run's status is stored.
  if (failure && !run.status_stored) {
    outcome.status = RunStatus::kRunning;
    outcome.registry_failure = RegistryFailureText(*failure, context.texts);
  }
  return outcome;
}

}  // namespace

ExitCode RunTask(HostContext& context, const CommandRequest& request, const HostConsole& console) {
  context.RequireTask(request.scenario, request.task);
  OpenTaskOnce(context, request.scenario, request.task);
  RequireRunnable(context);
  const std::optional<OpenedTask>& opened = context.state.commun.opened_task;
  const TaskLock lock(context.texts, opened);
  const std::string report = request.report.value_or(DefaultReportPath(request.task));
  RequireReportOfItsOwn(report, request.report ? ReportName::kGiven : ReportName::kDefault,
                        FilesOfRun(opened ? *opened : OpenedTask(), context.registry_path),
                        *context.files, *context.encoding);
  const RunStart begin = DecideStart(context, request);
  RequireWritableReport(context, report);
  if (begin.given_up) PrintErrorLine(console.err, *begin.given_up);
  std::vector<std::string> warnings;
  if (opened) warnings = RunWarnings(*opened, begin.resumes, *context.files, context.texts);
  for (const std::string& warning : warnings) {
    PrintErrorLine(console.err, context.texts.Text(HostText::kWarning, {warning}));
  }

  RunState& run = context.state.commun.run;
  std::optional<LiveLine> line;
  if (console.terminal != nullptr && !request.quiet && !request.json) {
    line.emplace(console.out, *console.terminal, context.texts);
  }
  RunWatcher watcher(run.progress, line ? &*line : nullptr);
  const SteadyClock::time_point start = SteadyClock::now();
  StopSignals signals(run.stop_requested, [&context] { context.state.odbc.cancellation.Cancel(); });
  if (console.ends_the_process) signals.LastUntilTheEnd();
  {
    ImpTable task(context.state, &watcher);
    task.InitializeProperties(request.task, request.scenario, OffsetOf(context.texts.language()));
    task.SetReportFilePath(report);
    task.Run(begin.resumes ? kResumeRequest : kFreshRequest);
  }
  line.reset();

  RunOutcome outcome = OutcomeOf(context, request, report, SecondsSince(start));
  outcome.warnings = std::move(warnings);
  if (request.json) {
    console.out << SummaryJson(outcome, context.texts);
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
