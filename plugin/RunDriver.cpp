#include "plugin/RunDriver.h"

#include <new>
#include <optional>
#include <utility>

#include "core/FileLook.h"
#include "core/StampText.h"
#include "import/PreImportDeletion.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/ResumeCheck.h"
#include "import/ledger/ResumeRule.h"
#include "import/ledger/TaskFiles.h"
#include "import/modes/DeleteMode.h"
#include "import/modes/InsertMode.h"
#include "import/modes/UpdateInsertMode.h"
#include "import/modes/UpdateMode.h"
#include "import/source/LineReader.h"
#include "plugin/TaskLoading.h"

namespace imptable {
namespace {

// Values of "Mode" that import something, and of "Suppression": never change. Mode 2 is
// INSERT/UPDATE, for which nothing is run.
constexpr std::int16_t kModeInsert = 0;
constexpr std::int16_t kModeUpdate = 1;
constexpr std::int16_t kModeUpdateInsert = 3;
constexpr std::int16_t kModeDelete = 4;
constexpr std::int16_t kGlobalDeletion = 1;
constexpr std::int16_t kSelectiveDeletion = 2;

}  // namespace

bool ImportsAnything(std::int16_t mode) {
  return mode == kModeInsert || mode == kModeUpdate || mode == kModeUpdateInsert ||
         mode == kModeDelete;
}

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
  state_.odbc.execution_mode = kRunMode;
  state_.odbc.error_reported = false;
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
  state_.odbc.ReadSystemDecimalSeparator();
  DecideResume();  // while everything is as the last run left it
  const DataFile file = LookAtDataFile();
  const std::unique_ptr<ImportLoop> import = MakeImport(file.state);
  // All that can be known is checked before the step that it would spoil: the settings and the
  // source before a side file goes, the table and its statement before a row goes.
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
  Report(module_.MessageText(Message::kNoFile) + DataFilePath(run_, run_.full_file_name == 1),
         ReportKind::kError);
  state_.odbc.error_reported = true;
  RecordOutcome();
}

void RunDriver::RemoveSideFile(std::string_view extension) {
  FileSystem& files = module_.platform.files;
  // A file that can't be deleted is the import's to complain about, when it opens it.
  static_cast<void>(files.Remove(files.Locate(SideFilePath(run_, extension))));
}

void RunDriver::DecideResume() {
  FileSystem& files = module_.platform.files;
  try {
    ResumeChain(files, SideFilePath(run_, kChainExtension)).RequireOwn();
    run_.resume = request_.request == kResumeRequest && CanResume(files, run_);
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
  RemoveSideFile(kErrorExtension);
  // What is left of an older chain would make a later resume skip lines of this run.
  if (!run_.resume) EndChain();
}

bool RunDriver::Discard(std::string_view extension) {
  FileSystem& files = module_.platform.files;
  const std::string path = files.Locate(SideFilePath(run_, extension));
  if (!RemoveIfAny(files, path)) return true;
  // Emptied it is as good as deleted.
  std::error_code opening;
  const auto file = files.OpenForWriting(path, WriteMode::kTruncate, opening);
  return file && !file->Close();
}

void RunDriver::EndChain() {
  ResumeChain chain(module_.platform.files, SideFilePath(run_, kChainExtension));
  // First of all, in one step: whenever the run dies, nothing half deleted is resumed.
  if (chain.state() == ResumeChain::State::kOpen) chain.Void();
  DeleteChain();
}

void RunDriver::DeleteChain() {
  ResumeChain chain(module_.platform.files, SideFilePath(run_, kChainExtension));
  const bool trace_is_gone = Discard(kTraceExtension);
  Discard(kRejectedExtension);
  // With the trace option that trace alone would be resumed.
  if (!trace_is_gone && run_.trace_option == 1) {
    chain.Void();
  } else {
    chain.Remove();
  }
}

RunDriver::DataFile RunDriver::LookAtDataFile() {
  FileSystem& files = module_.platform.files;
  DataFile file{DataFilePath(run_, run_.full_file_name == 1)};
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
    // The import is to complain about it; for what can't be imported nothing is deleted.
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
  std::unique_ptr<ModeRoutine> mode;
  switch (run_.mode) {
    case kModeInsert:
      mode = MakeInsertMode(module_, state_.odbc);
      break;
    case kModeUpdate:
      mode = MakeUpdateMode(module_, state_.odbc);
      break;
    case kModeUpdateInsert:
      mode = MakeUpdateInsertMode(module_, state_.odbc);
      break;
    case kModeDelete:
      mode = MakeDeleteMode(module_, state_.odbc);
      break;
    default:
      return nullptr;
  }
  return std::make_unique<ImportLoop>(module_, state_.odbc, std::move(mode));
}

bool RunDriver::StopAskedFor() {
  if (!run_.stop_requested.load()) return false;
  run_.interrupted = true;
  state_.odbc.error_reported = true;
  return true;
}

void RunDriver::DeleteBeforeImport(FileState state) {
  const bool even_when_empty = run_.empty_file_policy == 1;
  if (run_.resume ||
      !(state == FileState::kPresent || (state == FileState::kEmpty && even_when_empty))) {
    return;
  }
  if (run_.deletion_mode == kGlobalDeletion) RunGlobalDeletion(module_, state_.odbc);
  FileSystem& files = module_.platform.files;
  if (run_.deletion_mode == kSelectiveDeletion &&
      LookAt(files, files.Locate(SideFilePath(run_, kSelectionExtension)))) {
    RunSelectiveDeletion(module_, state_.odbc);
  }
}

void RunDriver::RecordOutcome() {
  module_.platform.message_loop.Yield();
  // When it can't be looked at, what the import reported decides alone.
  if (IsNotEmpty(module_.platform.files, SideFilePath(run_, kErrorExtension))) {
    state_.odbc.error_reported = true;
  }
  Report(module_.MessageText(Message::kTerminated), ReportKind::kHeading);
  module_.WriteText(run_.task, "ExecuteLe", StampText(module_.platform.clock.Now()));
  if (state_.odbc.error_reported) {
    run_.status = RunStatus::kFailed;
    return;
  }
  run_.status = RunStatus::kSucceeded;
}

void RunDriver::DeleteWhatCanBe() {
  try {
    DeleteChain();
  } catch (const RuntimeFault&) {
    // The import is done all the same. The next run ends the chain, or says why it can't.
  }
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
  // Only now: once the trace is gone nothing but the status tells a run that is done.
  try {
    EndChain();
  } catch (const RuntimeFault&) {
    DeleteWhatCanBe();
  }
}

void RunDriver::Disconnect() {
  OdbcSession& odbc = state_.odbc;
  // The flag outlives the connection until the next connect; the handle doesn't.
  if (!odbc.connected || odbc.connection == SQL_NULL_HDBC) return;
  try {
    odbc.DisconnectDataSource();
  } catch (...) {
    run_.fault = CurrentFault();
  }
}

}  // namespace imptable
