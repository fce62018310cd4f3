#include <optional>
#include <string>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/run/TaskLock.h"
#include "host/run/TaskOpening.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

bool IsYes(const std::string& answer) {
  return answer == "y" || answer == "Y" || answer == "yes" || answer == "o" || answer == "O" ||
         answer == "oui";
}

bool Agrees(const HostConsole& console, const std::string& question) {
  console.err << WithoutControls(question) << std::flush;
  std::string answer;
  return std::getline(console.in, answer) && IsYes(answer);
}

/// Takes the lock of a task, so that it can't run meanwhile.
/// @throws HostError  missing, when it is running.
std::optional<TaskLock> LockOf(HostContext& context, const std::string& scenario,
                               const std::string& task) {
  OpenTaskOnce(context, scenario, task);
  return std::optional<TaskLock>(std::in_place, context.texts, context.state.commun.opened_task);
}

/// Takes one lock at a time: tasks with the same files share a lock.
void RefuseWhileOneRuns(HostContext& context, const std::string& scenario) {
  for (const std::string& task : context.store.SubkeyNames(TasksKey(context.ToUtf8(scenario)))) {
    LockOf(context, scenario, context.FromUtf8(task));
  }
}

ExitCode DeleteScenario(HostContext& context, const CommandRequest& request,
                        const HostConsole& console) {
  context.RequireScenario(request.scenario);
  const std::string scenario = context.ToUtf8(request.scenario);
  if (!request.yes) {
    if (!console.asks) {
      throw HostError(ExitCode::kUsage, HostText::kDeletionWantsYes, {request.scenario});
    }
    const std::size_t tasks = context.store.SubkeyNames(TasksKey(scenario)).size();
    if (!Agrees(console, context.texts.Text(HostText::kAskToDeleteScenario,
                                            {request.scenario, std::to_string(tasks)}))) {
      throw HostError(ExitCode::kRunFailed, HostText::kNothingDeleted);
    }
  }
  RefuseWhileOneRuns(context, request.scenario);
  context.store.DeleteTree(ScenarioKey(scenario));
  return ExitCode::kDone;
}

ExitCode DeleteTask(HostContext& context, const CommandRequest& request, const std::string& task,
                    const HostConsole& console) {
  context.RequireTask(request.scenario, task);
  if (!request.yes && console.asks &&
      !Agrees(console, context.texts.Text(HostText::kAskToDeleteTask, {task, request.scenario}))) {
    throw HostError(ExitCode::kRunFailed, HostText::kNothingDeleted);
  }
  const std::optional<TaskLock> lock = LockOf(context, request.scenario, task);
  context.store.DeleteTree(TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(task)));
  return ExitCode::kDone;
}

}  // namespace

ExitCode DeleteKeys(HostContext& context, const CommandRequest& request,
                    const HostConsole& console) {
  return request.name ? DeleteTask(context, request, *request.name, console)
                      : DeleteScenario(context, request, console);
}

}  // namespace imptable
