#ifndef TESTS_ROBUSTNESS_FAULTS_FAULTED_TASK_H_
#define TESTS_ROBUSTNESS_FAULTS_FAULTED_TASK_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/ManualClock.h"
#include "platform/testing/ManualMessageLoop.h"
#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RecordingWarningBox.h"
#include "plugin/ImpTable.h"
#include "plugin/ModuleState.h"
#include "plugin/StandaloneHostLibrary.h"
#include "tests/drivers/ScriptedDataSource.h"
#include "tests/robustness/faults/FaultyFiles.h"
#include "tests/robustness/faults/FaultyPorts.h"
#include "tests/robustness/faults/OdbcCalls.h"
#include "tests/robustness/faults/Workload.h"
#include "tests/robustness/fuzz/MemoryFiles.h"

namespace imptable {

/// What one run left behind.
struct RunRecord {
  std::int32_t etat = 0;  // as the task's key has it
  RunStatus status = RunStatus::kNone;
  std::vector<std::string> report;
  std::string own_report;             // what went through the component's own line writer
  bool own_report_failed = false;     // as the stand-alone host library was told
  std::string diagnostics;            // the ".ERR" file
  std::vector<std::string> trace;     // whole lines of the ".TRC" file
  std::vector<std::string> rejected;  // lines of the ".LER" file
  std::string fault;                  // what the run's fault names
  RunProgress progress;
  int completes = 0;
  bool complete_was_last = false;
  std::size_t armed_timers = 0;
  int open_files = 0;
  std::vector<std::string> dropped_files;  // written, but not told to close
  int connections_made = 0;
  int disconnects_tried = 0;
  std::size_t live_handles = 0;
  int statements_left = 0;
  bool began_resumed = false;
  std::vector<ClientTable::Row> rows;

  bool Says(std::string_view text) const;
};

/// A workload as a task of a loaded component, against the scripted driver. A fault plan can break
/// each of the component's ports.
class FaultedTask {
 public:
  /// @param source  borrowed; one for all tasks of a program, as making one takes its time.
  /// @param traced_resume  "RecTrace".
  FaultedTask(ScriptedDataSource& source, const Workload& workload, bool traced_resume);
  ~FaultedTask();
  FaultedTask(const FaultedTask&) = delete;
  FaultedTask& operator=(const FaultedTask&) = delete;

  /// Runs the task with this fault. @param request  1, or 2 for a resume.
  RunRecord Run(std::int16_t request, std::optional<Fault> fault);

  /// Runs what the workload is about: a fresh run, or the resume of a run that comes first.
  RunRecord RunWorkload(std::optional<Fault> fault);

  /// Mends the rejected lines, as a user does between two runs.
  void MendRejectedLines();

  /// Lets a trace be enough for a resume.
  void LetTracesCount() { Set("RecTrace", 1); }

  /// Whether a resume goes on where the last run stopped.
  bool CanGoOn();

  /// Puts the rows back as they were before the first run.
  void RestoreRows();
  void WriteSource(const std::vector<std::string>& lines);

  /// Unloads the component. @return the handles of the driver manager that it kept.
  std::size_t Unload();

  const Workload& workload() const { return workload_; }
  const FaultPlan& plan() const { return plan_; }
  const ClientTable& table() const { return table_; }

 private:
  class Events;

  void Set(std::string_view name, std::string_view text);
  void Set(std::string_view name, std::int32_t number);
  void SetUp(const ScriptedDataSource& source, bool traced_resume);
  std::string FileText(const std::string& path) const;

  Workload workload_;
  FaultPlan plan_;
  ClientTable table_;
  OdbcCalls calls_{plan_, table_};
  MemoryRegistry stored_;
  FaultyRegistry registry_{stored_, plan_};
  MemoryFiles memory_;
  FaultyFiles files_{memory_, plan_};
  ManualMessageLoop message_loop_;
  ManualClock clock_{LocalTime{2006, 11, 15, 8, 30, 0}};
  Utf8TextEncoding encoding_;
  RecordingWarningBox warnings_;
  CountingPointer pointer_;
  ProfileFileReader profile_reader_{files_, encoding_};
  FaultyProfileFile profile_file_{profile_reader_, plan_};
  FaultyHost host_{plan_};
  StandaloneHostLibrary stand_alone_;
  std::unique_ptr<ModuleState> state_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_FAULTED_TASK_H_
