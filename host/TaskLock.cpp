#include "host/TaskLock.h"

#include <string>

#include "host/HostError.h"
#include "import/TaskFiles.h"
#include "platform/NameFolding.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskLoading.h"

namespace imptable {
namespace {

constexpr std::string_view kLockExtension = ".LCK";

/// Aliases that differ in case alone find each other's side files, so they have one lock.
std::string LockPath(const RunState& run) {
  const std::string path = SideFilePath(run, kLockExtension);
  const std::size_t name_at = path.rfind('/') + 1;  // npos + 1 is 0
  return path.substr(0, name_at) + FoldName(path.substr(name_at));
}

/// @return whether the settings could be read; the run itself tells why not.
bool LoadSettings(ModuleCommun& module, const CommandRequest& request) {
  module.location = TasksKey(request.scenario);
  module.run.scenario = request.scenario;
  module.run.task = request.task;
  try {
    LoadTaskIntoRun(module);
    return true;
  } catch (const RuntimeFault&) {
    return false;
  }
}

}  // namespace

TaskLock::TaskLock(HostContext& context, const CommandRequest& request) {
  ModuleCommun& module = context.state.commun;
  if (!LoadSettings(module, request)) return;
  file_.emplace(LockPath(module.run));
  switch (file_->state()) {
    case LockFile::State::kLocked:
    case LockFile::State::kNone:
      return;
    case LockFile::State::kBusy:
      throw file_->holder()
          ? HostError(ExitCode::kMissing, HostText::kTaskIsRunningInProcess,
                      {request.task, std::to_string(*file_->holder()), file_->path()})
          : HostError(ExitCode::kMissing, HostText::kTaskIsRunning, {request.task, file_->path()});
    case LockFile::State::kUnusable:
      const bool is_link = file_->error() == std::errc::too_many_symbolic_link_levels;
      throw HostError(
          ExitCode::kFault, HostText::kCannotLock,
          {request.task, file_->path(),
           is_link ? context.texts.Text(HostText::kIsSymbolicLink) : file_->error().message()});
  }
}

}  // namespace imptable
