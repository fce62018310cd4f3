#ifndef HOST_RUN_RUN_WARNINGS_H_
#define HOST_RUN_RUN_WARNINGS_H_

#include <string>
#include <vector>

#include "core/RunState.h"
#include "host/HostTexts.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// Settings of the task that a run ignores, one sentence each: a mode that imports nothing, an
/// unknown kind of deletion, a selective deletion without its file, an unknown date style, an
/// origin whose variable isn't set. Also names another task with the same side files, if a run that
/// doesn't resume gives up that task's unfinished run.
std::vector<std::string> RunWarnings(const OpenedTask& task, bool resumes, FileSystem& files,
                                     const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_RUN_RUN_WARNINGS_H_
