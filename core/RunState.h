#ifndef CORE_RUN_STATE_H_
#define CORE_RUN_STATE_H_

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/HostLibrary.h"
#include "core/ImportSettings.h"
#include "core/Outcome.h"
#include "core/RuntimeFault.h"

namespace imptable {

/// Values of "Etat", seen by the host: never change.
enum class RunStatus : std::int16_t { kNone = 0, kRunning = 1, kSucceeded = 2, kFailed = 3 };

/// Value of the run request that asks for a resume.
inline constexpr std::int16_t kResumeRequest = 2;

/// What a run has done so far, for whoever watches it. `read` and `lines` count source lines.
struct RunProgress {
  std::int64_t read = 0;
  OutcomeCounts lines = {};  // the lines read, by outcome
  /// Rows deleted before the import; nullopt when the data source didn't count them.
  std::optional<std::int64_t> deleted_before = 0;
  std::uint64_t bytes_read = 0;
  std::uint64_t bytes_in_file = 0;
};

/// What a run found in the place of its source.
enum class SourceState : std::uint8_t { kUnknown, kMissing, kEmpty, kPresent };

/// A setting for which a run has no value.
struct MissingValue {
  std::string setting;
  std::string stored;    // what the registry has
  std::string variable;  // the unset variable that it names; empty when it names none
};

/// A task as one run uses it: read once, with every "@" reference resolved. Its folder ends with
/// the path separator. Its alias keeps its trailing blanks.
struct OpenedTask : ImportSettings {
  std::string scenario;
  std::string task;
  std::int32_t most_errors = 0;               // the number in `error_limit`
  std::vector<StoredAssignment> assignments;  // "Champs", in the order of the registry
  std::map<std::string, std::string, std::less<>> variables;  // by name; the assignments use them

  /// Why no run of this task may begin: a reference names a variable that isn't set, or the data
  /// source is empty.
  std::optional<MissingValue> refusal;

  /// The code that opened the task has found that it can be resumed.
  bool resumes = false;

  /// The assignments whose variable isn't set: their columns get null.
  std::vector<MissingValue> unset_origins;
};

/// What one run shares with the import engine: the task and the run's flags. Lives until the next
/// run overwrites it.
struct RunState : OpenedTask {
  bool resume = false;
  SourceState source_state = SourceState::kUnknown;

  /// Set before a run: a resume accepts the source that it finds, even when the chain was begun
  /// with another one.
  bool takes_changed_source = false;
  bool requires_file = false;  // a missing data file fails the run

  bool pre_deletion_failed = false;
  bool deletion_faulted = false;  // a fault ended the deletion early; the import went on
  RunStatus status = RunStatus::kNone;
  bool error_reported = false;     // the report or ".ERR" tells of an error
  bool status_stored = false;      // the registry has the run's final status
  HostDisplay* display = nullptr;  // borrowed from the host for the length of the run
  RunProgress progress;

  /// The number of the current source line. A run that comes to no line may keep the number of the
  /// run before: the host's report shows it.
  std::int32_t line_number = 0;

  /// The user's separator: the last one that could be read.
  std::string decimal_separator = ".";

  /// The fault that ended the last run or one of its modes; empty when there was none.
  std::optional<RuntimeFault> fault;

  /// The run was asked to stop and ended before its last line.
  bool interrupted = false;

  /// Set from a signal handler or another thread: the run ends after the current line.
  std::atomic<bool> stop_requested{false};
};

}  // namespace imptable

#endif  // CORE_RUN_STATE_H_
