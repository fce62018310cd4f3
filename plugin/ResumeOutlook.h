#ifndef PLUGIN_RESUME_OUTLOOK_H_
#define PLUGIN_RESUME_OUTLOOK_H_

#include <cstdint>
#include <optional>
#include <string>

#include "import/ledger/ResumeCheck.h"
#include "plugin/ModuleState.h"

namespace imptable {

/// What a resume of a task would come to.
enum class ResumeAnswer : std::uint8_t {
  kResumes,
  kNothing,             // there is no line to go on from
  kDone,                // every line of this source is done: only the trace is still there
  kOptionOff,           // lines are traced, but the task's resume option is off
  kNeedsTraceOption,    // lines are traced and none rejected: the trace option lets them count
  kNoSource,            // there is no data file
  kEmptySource,         // it is empty
  kModeImportsNothing,  // the task's mode
  kObstacle,            // see there
};

/// The same with what it is known by, looked at without touching anything.
struct ResumeOutlook {
  ResumeAnswer answer = ResumeAnswer::kNothing;
  ChainFindings chain;
  std::optional<ResumeObstacle> obstacle;
  std::string source_path;
  bool succeeded = false;  // the last run, by its status
};

/// @param module  whose run has the task's settings.
/// @throws RuntimeFault  for a damaged trace or chain; file faults.
ResumeOutlook LookAtResume(ModuleCommun& module);

/// Loads the settings of a task, too.
/// @param tasks  registry location of the scenario's tasks.
/// @throws RuntimeFault  as above, and when the settings can't be read.
ResumeOutlook LookAtResume(ModuleState& state, const KeyPath& tasks, const std::string& scenario,
                           const std::string& task);

}  // namespace imptable

#endif  // PLUGIN_RESUME_OUTLOOK_H_
