#include "plugin/RunDriver.h"

#include <new>
#include <utility>

#include "import/DeleteMode.h"
#include "import/InsertMode.h"
#include "import/PreImportDeletion.h"
#include "import/ResumeChain.h"
#include "import/TaskFiles.h"
#include "import/UpdateInsertMode.h"
#include "import/UpdateMode.h"
#include "plugin/ResumeRule.h"
#include "plugin/TaskLoading.h"
#include "plugin/core/FileLook.h"
#include "plugin/core/StampText.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageRunTask = 94;
constexpr std::int32_t kMessageTerminated = 95;
constexpr std::int32_t kMessageConnect = 98;
constexpr std::int32_t kMessageDeleteErrorFiles = 99;
constexpr std::int32_t kMessageTable = 100;
constexpr std::int32_t kMessageHalted = 133;
constexpr std::int32_t kMessageNoFile = 136;
constexpr std::int32_t kMessageFile = 137;
constexpr std::int32_t kMessageIsEmpty = 138;

// Values of "Mode" that import something, and of "Suppression": never change. Mode 2 is
// INSERT/UPDATE, for which nothing is run.
constexpr std::int16_t kModeInsert = 0;
constexpr std::int16_t kModeUpdate = 1;
constexpr std::int16_t kModeUpdateInsert = 3;
constexpr std::int16_t kModeDelete = 4;
constexpr std::int16_t kGlobalDeletion = 1;
constexpr std::int16_t kSelectiveDeletion = 2;

}  // namespace

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
  run_.resume = false;
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

void RunDriver::LoadTask() { LoadTaskIntoRun(module_); }

void RunDriver::RunTask() {
  progress_();
  Report(module_.MessageText(kMessageRunTask) + run_.task, ReportKind::kHeading);
  Report(module_.MessageText(kMessageConnect) + run_.data_source, ReportKind::kInformation);
  if (!state_.odbc.ConnectDataSource(run_.data_source, run_.login, run_.password)) {
    Report(module_.MessageText(kMessageHalted), ReportKind::kError);
    run_.status = RunStatus::kFailed;
    return;
  }
  progress_();
  Report(module_.MessageText(kMessageDeleteErrorFiles), ReportKind::kInformation);
  PrepareSideFiles();
  Report(module_.MessageText(kMessageTable) + run_.table, ReportKind::kInformation);
  state_.odbc.ReadSystemDecimalSeparator();
  const FileState file = CheckDataFile(DataFilePath(run_, run_.full_file_name == 1));
  DeleteBeforeImport(file);
  progress_();
  Import(file);
  RecordOutcome();
}

void RunDriver::RemoveStored(std::string_view extension) {
  FileSystem& files = module_.platform.files;
  // A file that can't be deleted is the import's to complain about, when it opens it.
  static_cast<void>(files.Remove(files.Locate(StoredSideFilePath(run_, extension))));
}

void RunDriver::PrepareSideFiles() {
  RemoveStored(kErrorExtension);
  run_.resume = request_.request == kResumeRequest && CanResume(module_.platform.files, run_);
  // What is left of an older chain would make a later resume skip lines of this run.
  if (!run_.resume) EndChain();
}

bool RunDriver::Discard(std::string_view extension) {
  FileSystem& files = module_.platform.files;
  const std::string path = files.Locate(StoredSideFilePath(run_, extension));
  if (!RemoveIfAny(files, path)) return true;
  // Emptied it is as good as deleted.
  std::error_code opening;
  const auto file = files.OpenForWriting(path, WriteMode::kTruncate, opening);
  return file && !file->Close();
}

void RunDriver::EndChain() {
  ResumeChain chain(module_.platform.files, StoredSideFilePath(run_, kChainExtension));
  // First of all, in one step: whenever the run dies, nothing half deleted is resumed.
  if (chain.state() == ResumeChain::State::kOpen) chain.Void();
  DeleteChain();
}

void RunDriver::DeleteChain() {
  ResumeChain chain(module_.platform.files, StoredSideFilePath(run_, kChainExtension));
  const bool trace_is_gone = Discard(kTraceExtension);
  Discard(kRejectedExtension);
  // With the trace option that trace alone would be resumed.
  if (!trace_is_gone && run_.trace_option == 1) {
    chain.Void();
  } else {
    chain.Remove();
  }
}

RunDriver::FileState RunDriver::CheckDataFile(const std::string& path) {
  FileSystem& files = module_.platform.files;
  const std::string located = files.Locate(path);
  const auto info = LookAt(files, located);
  if (!info) {
    // Neither is one missing that opening finds out of reach, or whose name no file can have.
    std::error_code error;
    files.OpenForReading(located, error);
    if (error && error != std::errc::no_such_file_or_directory &&
        error != std::errc::not_a_directory) {
      throw FileFault(error, located);
    }
    Report(module_.MessageText(kMessageNoFile) + path, ReportKind::kInformation);
    return FileState::kMissing;
  }
  // The import is to complain about it; for what can't be imported nothing is deleted.
  if (!info->is_file) return FileState::kNoFile;
  if (info->size == 0) {
    Report(module_.MessageText(kMessageFile) + path + module_.MessageText(kMessageIsEmpty),
           ReportKind::kInformation);
    return FileState::kEmpty;
  }
  run_.progress.bytes_in_file = info->size;
  return FileState::kPresent;
}

bool RunDriver::StopAskedFor() {
  if (!run_.stop_requested.load()) return false;
  run_.interrupted = true;
  state_.odbc.error_reported = true;
  return true;
}

void RunDriver::DeleteBeforeImport(FileState state) {
  const bool even_when_empty = run_.empty_file_policy == 1;
  if (run_.resume || StopAskedFor() ||
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

void RunDriver::Import(FileState state) {
  const bool anything = state == FileState::kPresent || state == FileState::kNoFile;
  if (!anything || run_.pre_deletion_failed || StopAskedFor()) return;
  const bool complete_name = run_.full_file_name == 1;
  switch (run_.mode) {
    case kModeInsert:
      return RunInsertMode(module_, state_.odbc, complete_name);
    case kModeUpdate:
      return RunUpdateMode(module_, state_.odbc, complete_name);
    case kModeUpdateInsert:
      return RunUpdateInsertMode(module_, state_.odbc, complete_name);
    case kModeDelete:
      return RunDeleteMode(module_, state_.odbc, complete_name);
    default:
      return;
  }
}

void RunDriver::RecordOutcome() {
  module_.platform.message_loop.Yield();
  // When it can't be looked at, what the import reported decides alone.
  if (IsNotEmpty(module_.platform.files, SideFilePath(run_, kErrorExtension))) {
    state_.odbc.error_reported = true;
  }
  Report(module_.MessageText(kMessageTerminated), ReportKind::kHeading);
  module_.WriteText(run_.task, "ExecuteLe", StampText(module_.platform.clock.Now()));
  if (state_.odbc.error_reported) {
    run_.status = RunStatus::kFailed;
    return;
  }
  run_.status = RunStatus::kSucceeded;
  // Once the trace is gone nothing else tells a run that died here from one that did nothing.
  if (run_.trace_option == 1) WriteStatus();
  try {
    EndChain();
  } catch (const RuntimeFault&) {
    DeleteWhatCanBe();
  }
}

void RunDriver::DeleteWhatCanBe() {
  try {
    DeleteChain();
  } catch (const RuntimeFault&) {
    // The import is done all the same. The next run ends the chain, or says why it can't.
  }
}

void RunDriver::WriteStatus() {
  module_.WriteNumber(run_.task, "Etat", static_cast<std::int32_t>(run_.status));
}

void RunDriver::Finish() {
  // Without a location there is no task whose status could be written.
  if (announced_) WriteStatus();
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
