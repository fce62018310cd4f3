#ifndef HOST_RUN_TASK_LOCK_H_
#define HOST_RUN_TASK_LOCK_H_

#include <optional>

#include "core/RunState.h"
#include "host/HostTexts.h"
#include "platform/files/LockFile_linux.h"

namespace imptable {

/// While it lives, no other run from the command line works on the side files of this task, be it
/// of the same task or of another one with the same folder and alias. The lock is a file beside the
/// side files. Where that file can't be made there is no lock: the run itself reports such a
/// folder.
class TaskLock {
 public:
  /// Changes nothing but the lock file.
  /// @throws HostError  missing, when another run has the lock; fault, when what has the lock
  /// file's name can't be locked.
  /// @param task  as opened; without a task there is no lock.
  TaskLock(const HostTexts& texts, const std::optional<OpenedTask>& task);

 private:
  std::optional<LockFile> file_;
};

}  // namespace imptable

#endif  // HOST_RUN_TASK_LOCK_H_
