#ifndef HOST_RUN_OUTCOME_H_
#define HOST_RUN_OUTCOME_H_

#include <optional>
#include <string>

#include "host/ExitCode.h"
#include "host/HostTexts.h"
#include "plugin/core/RunState.h"

namespace imptable {

/// What a run came to, in one word.
enum class RunEnding {
  kDone,
  kRejected,
  kErrorLimit,  // more lines were rejected than the task allows
  kNoConnection,
  kModeFaulted,  // a fault ended the import or the deletion, not the run
  kDeletionFailed,
  kErrors,   // without a rejected line
  kStopped,  // an unexpected fault ended the run
  kInterrupted,
};

/// @param connected  whether the data source let the run in.
RunEnding EndingOf(const RunState& run, bool connected);

/// A finished run as the command line tells about it; texts in the system's code page.
struct RunOutcome {
  std::string scenario;
  std::string task;
  RunEnding ending = RunEnding::kDone;
  RunStatus status = RunStatus::kNone;
  RunProgress progress;
  double seconds = 0;
  std::string report;
  std::string data_source;
  std::string side_files;          // their path without the extension
  bool has_error_file = false;     // ".ERR" holds something
  bool has_rejected_file = false;  // ".LER" holds something
  bool can_resume = false;
  std::string fault;  // in words; empty when there was none
  bool report_failed = false;
  std::optional<std::string> registry_failure;  // why the task's status couldn't be written
};

ExitCode ExitCodeOf(const RunOutcome& outcome);

/// The line on standard error: what happened and the way out.
/// @return nullopt when all went well.
std::optional<std::string> ErrorLineOf(const RunOutcome& outcome, const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_RUN_OUTCOME_H_
