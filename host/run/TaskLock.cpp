#include "host/run/TaskLock.h"

#include <string>

#include "host/HostError.h"
#include "import/ledger/TaskFiles.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr std::string_view kLockExtension = ".LCK";

/// Aliases that differ in case alone find each other's side files, so they have one lock.
std::string LockPath(const OpenedTask& task) {
  const std::string path = SideFilePath(task, kLockExtension);
  const std::size_t name_at = path.rfind('/') + 1;  // npos + 1 is 0
  return path.substr(0, name_at) + FoldName(path.substr(name_at));
}

}  // namespace

TaskLock::TaskLock(const HostTexts& texts, const std::optional<OpenedTask>& task) {
  if (!task) return;
  file_.emplace(LockPath(*task));
  switch (file_->state()) {
    case LockFile::State::kLocked:
    case LockFile::State::kNone:
      return;
    case LockFile::State::kBusy:
      throw file_->holder()
          ? HostError(ExitCode::kMissing, HostText::kTaskIsRunningInProcess,
                      {task->task, std::to_string(*file_->holder()), file_->path()})
          : HostError(ExitCode::kMissing, HostText::kTaskIsRunning, {task->task, file_->path()});
    case LockFile::State::kForeign:
      throw HostError(ExitCode::kFault, HostText::kForeignLock, {task->task, file_->path()});
    case LockFile::State::kUnusable:
      const bool is_link = file_->error() == std::errc::too_many_symbolic_link_levels;
      throw HostError(ExitCode::kFault, HostText::kCannotLock,
                      {task->task, file_->path(),
                       is_link ? texts.Text(HostText::kIsSymbolicLink) : file_->error().message()});
  }
}

}  // namespace imptable
