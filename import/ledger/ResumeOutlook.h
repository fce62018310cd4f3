#ifndef IMPORT_LEDGER_RESUME_OUTLOOK_H_
#define IMPORT_LEDGER_RESUME_OUTLOOK_H_

#include <cstdint>
#include <optional>
#include <string>

#include "core/ModuleCommun.h"
#include "import/ledger/ResumeCheck.h"

namespace imptable {

/// What a resume of a task would come to.
enum class ResumeAnswer : std::uint8_t {
  kResumes,
  kNothing,             // there is no line to go on from
  kDone,                // every line of this source is done: only the trace is still there
  kOptionOff,           // lines are traced, but the task's resume option is off
  kNeedsTraceOption,    // lines are traced and none rejected: the trace option is needed
  kNoSource,            // there is no data file
  kEmptySource,         // the data file is empty
  kModeImportsNothing,  // the task's mode imports nothing
  kObstacle,            // see ResumeOutlook::obstacle
};

/// The answer with the findings behind it. Looking changes nothing.
struct ResumeOutlook {
  ResumeAnswer answer = ResumeAnswer::kNothing;
  ChainFindings chain;
  std::optional<ResumeObstacle> obstacle;
  std::string source_path;
  bool succeeded = false;  // the last run, by its status
};

/// @param module  its run has the task's settings.
/// @throws RuntimeFault  for a damaged trace or chain; file faults.
ResumeOutlook LookAtResume(ModuleCommun& module);

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_OUTLOOK_H_
