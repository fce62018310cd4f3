#ifndef PLUGIN_RESUME_OUTLOOK_H_
#define PLUGIN_RESUME_OUTLOOK_H_

#include <cstdint>
#include <string>

#include "plugin/ModuleState.h"

namespace imptable {

/// What a resume of a task would do, looked at without touching anything.
struct ResumeOutlook {
  bool resumes = false;           // else the component would start afresh
  std::int64_t traced_lines = 0;  // of the source, by the last run's trace or the chain's state
  std::string trace_path;         // of the file that says so
};

/// @param tasks  registry location of the scenario's tasks.
/// @throws RuntimeFault  when the task's settings or its trace can't be read.
ResumeOutlook LookAtResume(ModuleState& state, const KeyPath& tasks, const std::string& scenario,
                           const std::string& task);

}  // namespace imptable

#endif  // PLUGIN_RESUME_OUTLOOK_H_
