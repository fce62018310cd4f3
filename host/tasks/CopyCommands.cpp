#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/ColumnOrder.h"
#include "host/registry/KeyName.h"
#include "host/run/TaskLock.h"
#include "host/run/TaskOpening.h"
#include "platform/text/NameFolding.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

/// Values that tell of a task's own past. A copy doesn't get them.
constexpr std::array<std::string_view, 4> kOwnValues{"Etat", "ExecuteLe", "CréeLe", "ModifiéLe"};

bool IsOwnValue(std::string_view name) {
  return std::any_of(kOwnValues.begin(), kOwnValues.end(),
                     [&](std::string_view own) { return FoldName(own) == FoldName(name); });
}

bool IsSameKey(const KeyPath& left, const KeyPath& right) {
  return FoldName(left.path) == FoldName(right.path);
}

/// The edits that write a task's keys as another task.
/// @param task  the task's own key first.
std::vector<RegistryEdit> EditsWriting(const std::vector<StoredKey>& task, const KeyPath& other,
                                       bool with_past) {
  const std::size_t prefix = task.front().key.path.size();
  std::vector<RegistryEdit> edits;
  for (const StoredKey& stored : task) {
    const KeyPath key{other.root, other.path + stored.key.path.substr(prefix)};
    const bool is_task = stored.key.path.size() == prefix;
    edits.push_back({RegistryEdit::Action::kCreateKey, key, "", {}});
    for (const NamedValue& value : stored.values) {
      if (is_task && !with_past && IsOwnValue(value.name)) continue;
      edits.push_back({RegistryEdit::Action::kSetValue, key, value.name, value.value});
    }
  }
  return edits;
}

enum class Former { kStays, kGoes };

void WriteAsOther(HostContext& context, const CommandRequest& request, Former former) {
  const KeyPath task = TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task));
  const KeyPath other =
      TaskKey(context.ToUtf8(request.other_scenario), context.ToUtf8(request.other_task));
  const bool goes = former == Former::kGoes;
  context.store.Together([&] {
    context.RequireTask(request.scenario, request.task);
    // A new name that differs only in capitals is the same key.
    const bool new_capitals = goes && IsSameKey(task, other) && task.path != other.path;
    if (context.store.KeyExists(other) && !new_capitals) {
      throw HostError(ExitCode::kUsage, HostText::kTaskExists,
                      {request.other_task, request.other_scenario});
    }
    const std::vector<RegistryEdit> edits = EditsWriting(context.store.Tree(task), other, goes);
    if (goes) context.store.DeleteTree(task);
    context.store.Apply(edits);
    OrderColumnsOf(context.store, edits);
  });
}

void RequireBoth(const HostContext& context, const CommandRequest& request) {
  RequireName(*context.encoding, request.other_scenario);
  RequireName(*context.encoding, request.other_task);
  context.RequireTask(request.scenario, request.task);
}

}  // namespace

ExitCode CopyTask(HostContext& context, const CommandRequest& request, const HostConsole&) {
  RequireBoth(context, request);
  WriteAsOther(context, request, Former::kStays);
  return ExitCode::kDone;
}

ExitCode RenameTask(HostContext& context, const CommandRequest& request, const HostConsole&) {
  RequireBoth(context, request);
  OpenTaskOnce(context, request.scenario, request.task);
  // A running task would store its result under the former name.
  const TaskLock lock(context.texts, context.state.commun.opened_task);
  WriteAsOther(context, request, Former::kGoes);
  return ExitCode::kDone;
}

}  // namespace imptable
