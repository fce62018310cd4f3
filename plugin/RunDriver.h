#ifndef PLUGIN_RUN_DRIVER_H_
#define PLUGIN_RUN_DRIVER_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "import/ImportLoop.h"
#include "plugin/ModuleState.h"

namespace imptable {

/// What the host asked to be run.
struct RunRequest {
  std::string task;
  std::string scenario;
  KeyPath tasks;  // registry location of the scenario's tasks
  std::string report_path;
  HostDisplay* display = nullptr;         // borrowed for the length of the run; may be null
  ReportWriter* report_writer = nullptr;  // borrowed for the length of the run
  std::int16_t request = 0;               // kResumeRequest asks for a resume
};

/// Runs one task from start to end. Everything it has to say goes to the execution report, the side
/// files and the task's "Etat".
class RunDriver {
 public:
  /// @param state  borrowed.
  /// @param progress  called at the run's milestones.
  RunDriver(ModuleState& state, RunRequest request, std::function<void()> progress);

  /// Everything up to the final "Etat".
  void Execute();

  /// Ends the connection of the run, if there is one.
  void Disconnect();

 private:
  enum class FileState : std::uint8_t { kPresent, kEmpty, kMissing, kNoFile };

  /// What a look at the data file found.
  struct DataFile {
    std::string path;  // as the settings have it
    FileState state = FileState::kMissing;
  };

  void ClearRun();
  void Announce();
  /// Takes the task that was read before the run, or reads it.
  void LoadTask();
  void RunTask();
  /// @throws RuntimeFault  when there is a chain to resume that this run may not go on with; the
  /// reason is reported.
  void DecideResume();
  /// Ends the run as failed. The side files stay as the last run left them.
  void RefuseMissingFile();
  void PrepareSideFiles();
  DataFile LookAtDataFile();
  void ReportDataFile(const DataFile& file);
  /// @return null when the task's mode or the state of its file leave nothing to import.
  std::unique_ptr<ImportLoop> MakeImport(FileState state);
  void DeleteBeforeImport(FileState state);
  void RecordOutcome();
  /// @return whether the status is stored.
  bool WriteStatus();
  /// Stores the status, then ends the chain that is done.
  void Finish();

  bool StopAskedFor();
  void Report(const std::string& text, ReportKind kind) { module_.WriteReport(text, kind); }

  ModuleState& state_;
  ModuleCommun& module_;
  RunState& run_;
  RunRequest request_;
  std::function<void()> progress_;
  bool announced_ = false;
};

/// The fault that an exception amounts to; to be called from within a handler.
RuntimeFault CurrentFault();

}  // namespace imptable

#endif  // PLUGIN_RUN_DRIVER_H_
