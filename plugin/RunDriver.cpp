#include "plugin/RunDriver.h"

#include <new>
#include <optional>
#include <utility>

#include "core/FileLook.h"
#include "core/StampText.h"
#include "import/PreImportDeletion.h"
#include "import/ledger/ChainEnd.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/ResumeCheck.h"
#include "import/ledger/TaskFiles.h"
#include "import/source/LineReader.h"
#include "plugin/TaskLoading.h"

namespace imptable {

RuntimeFault CurrentFault() {
  try {
    throw;
  } catch (const RuntimeFault& fault) {
    return fault;
  } catch (const std::bad_alloc&) {
    return RuntimeFault(FaultNumber::kOutOfMemory);
  } catch (const std::exception& error) {
    return RuntimeFault(FaultNumber::kDeviceError, error.what());
  }
}

RunDriver::RunDriver(ModuleState& state, RunRequest request, std::function<void()> progress)
    : state_(state),
      module_(state.commun),
      run_(state.commun.run),
      request_(std::move(request)),
      progress_(std::move(progress)) {}

void RunDriver::Execute() {
  ClearRun();
  try {
    Announce();
    LoadTask();
    RunTask();
  } catch (...) {
    run_.fault = CurrentFault();
  }
  Finish();
}

void RunDriver::ClearRun() {
  state_.SetExecutionMode(ExecutionMode::kRun);
  run_.error_reported = false;
  run_.scenario = request_.scenario;
  run_.task = request_.task;
  run_.status = RunStatus::kRunning;
  run_.status_stored = false;
  run_.deletion_faulted = false;
  run_.resume = false;
  run_.source_state = SourceState::kUnknown;
  run_.pre_deletion_failed = false;
  run_.interrupted = false;
  run_.fault.reset();
  run_.progress = {};
}

void RunDriver::Announce() {
  module_.report_writer = request_.report_writer;
  if (module_.report_writer == nullptr) {
    throw RuntimeFault(FaultNumber::kNoHostObject, "ReportWriter");
  }
  module_.report_path = request_.report_path;
  module_.report_writer->SetScenario(request_.scenario);
  module_.report_writer->SetReportPath(request_.report_path);
  module_.location = request_.tasks;
  announced_ = true;
  WriteStatus();
  run_.display = request_.display;
}

void RunDriver::LoadTask() {
  std::optional<OpenedTask> opened = std::exchange(module_.opened_task, std::nullopt);
  if (!opened || opened->scenario != request_.scenario || opened->task != request_.task) {
    opened = OpenTask(module_, request_.scenario, request_.task);
  }
  TakeTask(module_, *std::move(opened));
  if (run_.refusal) {
    throw RuntimeFault(FaultNumber::kInvalidArgument,
                       '"' + run_.refusal->setting + "\" = \"" + run_.refusal->stored + '"');
  }
}

void RunDriver::RunTask() {
  progress_();
  Report(module_.MessageText(Message::kRunTask) + run_.task, ReportKind::kHeading);
  Report(module_.MessageText(Message::kConnect) + run_.data_source, ReportKind::kInformation);
  if (!state_.odbc.ConnectDataSource(run_.data_source, run_.login, run_.password)) {
    Report(module_.MessageText(Message::kNoConnection), ReportKind::kError);
    run_.status = RunStatus::kFailed;
    return;
  }
  progress_();
  if (run_.requires_file && LookAtDataFile().state == FileState::kMissing) {
    RefuseMissingFile();
    return;
  }
  Report(module_.MessageText(Message::kDeleteErrorFiles), ReportKind::kInformation);
  module_.ReadDecimalSeparator();
  DecideResume();  // while everything is as the last run left it
  const DataFile file = LookAtDataFile();
  const std::unique_ptr<ImportLoop> import = MakeImport(file.state);
  // Check all that can be known before the step that an error would spoil: the settings and the
  // source before a side file is deleted, the table and its statement before a row is deleted.
  bool sound = !import || import->Check();
  if (sound) PrepareSideFiles();
  Report(module_.MessageText(Message::kProcessTable) + run_.table, ReportKind::kInformation);
  ReportDataFile(file);
  if (import && sound && !StopAskedFor()) sound = import->Prepare();
  if (sound && !StopAskedFor()) DeleteBeforeImport(file.state);
  progress_();
  if (import && !sound) {
    import->Run();
  } else if (import) {
    if (run_.pre_deletion_failed || StopAskedFor()) {
      import->Abandon();
    } else {
      import->Run();
    }
  }
  RecordOutcome();
}

void RunDriver::RefuseMissingFile() {
  Report(module_.MessageText(Message::kNoFile) + DataFilePath(run_), ReportKind::kError);
  run_.error_reported = true;
  RecordOutcome();
}

void RunDriver::DecideResume() {
  FileSystem& files = module_.platform.files;
  try {
    ResumeChain(files, SideFilePath(run_, kChainExtension)).RequireOwn();
    run_.resume = request_.request == kResumeRequest && (run_.resumes || CanResume(files, run_));
    if (!run_.resume) return;
    const ChainFindings chain = FindChain(files, run_);
    if (const auto obstacle = FindObstacle(files, run_, chain)) throw FaultOf(*obstacle, chain);
  } catch (const RuntimeFault& fault) {
    run_.resume = false;
    Report(" -->   " + module_.MessageText(Message::kFault) +
               std::to_string(static_cast<std::int32_t>(fault.number())) + " ," +
               module_.FaultText(fault),
           ReportKind::kError);
    throw;
  }
}

void RunDriver::PrepareSideFiles() {
  FileSystem& files = module_.platform.files;
  DeleteErrorFile(files, run_);
  // What is left of an older chain would make a later resume skip lines of this run.
  if (!run_.resume) EndChain(files, run_);
}

RunDriver::DataFile RunDriver::LookAtDataFile() {
  FileSystem& files = module_.platform.files;
  DataFile file{DataFilePath(run_)};
  const std::string located = files.Locate(file.path);
  const auto info = LookAt(files, located);
  if (!info) {
    // Opening tells a missing file from one that can't be reached.
    std::error_code error;
    files.OpenForReading(located, error);
    if (error && error != std::errc::no_such_file_or_directory &&
        error != std::errc::not_a_directory) {
      throw FileFault(error, located);
    }
    run_.source_state = SourceState::kMissing;
  } else if (!info->is_file) {
    // The import will complain about it. Nothing is deleted for a source that can't be imported.
    file.state = FileState::kNoFile;
  } else {
    const bool empty = HasNoLine(files, located, info->size, module_.platform.encoding.IsUtf8());
    file.state = empty ? FileState::kEmpty : FileState::kPresent;
    run_.source_state = empty ? SourceState::kEmpty : SourceState::kPresent;
    run_.progress.bytes_in_file = info->size;
  }
  return file;
}

void RunDriver::ReportDataFile(const DataFile& file) {
  if (file.state == FileState::kMissing) {
    Report(module_.MessageText(Message::kNoFile) + file.path, ReportKind::kInformation);
  } else if (file.state == FileState::kEmpty) {
    Report(module_.MessageText(Message::kFileNamed) + file.path +
               module_.MessageText(Message::kIsEmpty),
           ReportKind::kInformation);
  }
}

std::unique_ptr<ImportLoop> RunDriver::MakeImport(FileState state) {
  if (state != FileState::kPresent && state != FileState::kNoFile) return nullptr;
  const Mode* const mode = FindMode(run_.mode);
  if (mode == nullptr) return nullptr;
  return std::make_unique<ImportLoop>(module_, state_.odbc, *mode);
}

bool RunDriver::StopAskedFor() {
  if (!run_.stop_requested.load()) return false;
  run_.interrupted = true;
  run_.error_reported = true;
  return true;
}

void RunDriver::DeleteBeforeImport(FileState state) {
  const bool even_when_empty = run_.empty_file_policy == Flag::kOn;
  if (run_.resume ||
      !(state == FileState::kPresent || (state == FileState::kEmpty && even_when_empty))) {
    return;
  }
  if (run_.deletion == Deletion::kGlobal) RunGlobalDeletion(module_, state_.odbc);
  FileSystem& files = module_.platform.files;
  if (run_.deletion == Deletion::kSelective &&
      LookAt(files, files.Locate(SideFilePath(run_, kSelectionExtension)))) {
    RunSelectiveDeletion(module_, state_.odbc);
  }
}

void RunDriver::RecordOutcome() {
  module_.platform.message_loop.Yield();
  // When the error file can't be looked at, only what the import reported counts.
  if (IsNotEmpty(module_.platform.files, SideFilePath(run_, kErrorExtension))) {
    run_.error_reported = true;
  }
  Report(module_.MessageText(Message::kTerminated), ReportKind::kHeading);
  module_.WriteText(run_.task, "ExecuteLe", StampText(module_.platform.clock.Now()));
  if (run_.error_reported) {
    run_.status = RunStatus::kFailed;
    return;
  }
  run_.status = RunStatus::kSucceeded;
}

bool RunDriver::WriteStatus() {
  return module_.WriteNumber(run_.task, "Etat", static_cast<std::int32_t>(run_.status)) == 0;
}

void RunDriver::Finish() {
  // Without a location there is no task whose status could be written.
  run_.status_stored = announced_ && WriteStatus();
  if (!run_.status_stored || run_.status != RunStatus::kSucceeded) return;
  // A resume that came to no line has done nothing of its chain.
  if (run_.resume && run_.progress.read == 0) return;
  // Only now: once the trace is gone, nothing but the stored status says that the run is done.
  EndDoneChain(module_.platform.files, run_);
}

void RunDriver::Disconnect() {
  OdbcSession& odbc = state_.odbc;
  // `connected` may still be set when the connection is gone; the handle is null then.
  if (!odbc.connected || odbc.connection == SQL_NULL_HDBC) return;
  try {
    odbc.DisconnectDataSource();
  } catch (...) {
    run_.fault = CurrentFault();
  }
}

}  // namespace imptable
