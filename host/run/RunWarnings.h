#ifndef HOST_RUN_RUN_WARNINGS_H_
#define HOST_RUN_RUN_WARNINGS_H_

#include <string>
#include <vector>

#include "core/RunState.h"
#include "host/HostTexts.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// What a task asks for that a run takes no notice of, each as one sentence: a mode that imports
/// nothing, a deletion that there is not, a selective deletion without its file, a date style that
/// there is not, an origin whose variable isn't set; and what a run that doesn't resume takes from
/// another task with the same side files.
std::vector<std::string> RunWarnings(const OpenedTask& task, bool resumes, FileSystem& files,
                                     const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_RUN_RUN_WARNINGS_H_
