#ifndef HOST_RUN_RUN_OUTCOME_H_
#define HOST_RUN_RUN_OUTCOME_H_

#include <optional>
#include <string>
#include <vector>

#include "core/RunState.h"
#include "host/ExitCode.h"
#include "host/HostTexts.h"

namespace imptable {

/// How a run ended, in one word.
enum class RunEnding {
  kDone,
  kRejected,
  kErrorLimit,  // more lines were rejected than the task allows
  kNoConnection,
  kModeFaulted,  // a fault ended the import or the deletion, not the run
  kDeletionFailed,
  kErrors,   // errors, but no rejected line
  kNoFile,   // done, but the data file that had to be there is missing
  kStopped,  // an unexpected fault ended the run
  kInterrupted,
};

/// What to do after a run that isn't done.
enum class NextStep {
  kNone,  // no trace tells which lines are done
  kResume,
  kTraceThenResume,  // first set "RecTrace", so that the trace alone is enough
  kAfresh,           // the run reached no line
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
  NextStep next = NextStep::kNone;
  std::string set_trace_command;  // what to type before resume_command, for kTraceThenResume
  std::string resume_command;
  bool resumed = false;
  std::string source_path;
  SourceState source_state = SourceState::kUnknown;
  std::string table;
  ImportMode mode = ImportMode::kInsert;
  std::int64_t started = 0;  // this and `ended` in seconds since 1970 UTC
  std::int64_t ended = 0;
  std::vector<std::string> files;  // the side files that exist
  std::vector<std::string> warnings;
  std::string fault;  // in words; empty when there was none
  bool report_failed = false;
  std::optional<std::string> registry_failure;  // why the task's status couldn't be written
};

ExitCode ExitCodeOf(const RunOutcome& outcome);

/// The line on standard error: what happened and the way out.
/// @return nullopt when all went well.
std::optional<std::string> ErrorLineOf(const RunOutcome& outcome, const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_RUN_RUN_OUTCOME_H_
