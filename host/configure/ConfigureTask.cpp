#include "host/configure/ConfigureTask.h"

#include <array>

#include "dialogs/widgets/Toolkit.h"
#include "dialogs/widgets/WidgetBoxes.h"
#include "dialogs/widgets/WidgetOdbcAdministrator.h"
#include "dialogs/widgets/WidgetTaskDialogs.h"
#include "host/HostError.h"
#include "host/RunHost.h"
#include "host/registry/KeyName.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

// Exit codes when nothing went wrong. Scripts rely on them: never change.
constexpr ExitCode kSaved = ExitCode::kDone;
constexpr ExitCode kCancelled = ExitCode::kRunFailed;

ExitCode ShowDialog(HostContext& context, const CommandRequest& request,
                    const HostConsole& /*console*/) {
  RequireName(*context.encoding, request.scenario);
  RequireName(*context.encoding, request.task);
  const std::unique_ptr<Toolkit> toolkit = Toolkit::Start();
  if (!toolkit) throw HostError(ExitCode::kFault, HostText::kNoDisplay);

  WidgetBoxes boxes(*context.encoding);
  WidgetOdbcAdministrator administrator;
  const DialogServices services{
      .module = context.state.commun,
      .boxes = boxes,
      .administrator = administrator,
      .question_without_user = context.texts.Text(HostText::kAskWithoutUser)};
  WidgetTaskDialogs dialogs(services);
  const bool exists = context.store.KeyExists(
      TaskKey(context.ToUtf8(request.scenario), context.ToUtf8(request.task)));
  ImpTable task(context.state, nullptr, &dialogs);
  task.InitializeProperties(request.task, request.scenario, OffsetOf(context.texts.language()));
  task.SetWorkingMode(exists ? 1 : 0);
  task.ShowWrapper();
  return dialogs.saved() ? kSaved : kCancelled;
}

constexpr auto kCommands = std::to_array<HostCommand>({{"configure", ShowDialog, true}});

/// The arguments as the command line knows them: the command stands before the scenario.
std::vector<std::string> WithCommand(const std::vector<std::string>& arguments) {
  std::vector<std::string> words = arguments;
  auto at = words.begin();
  while (at != words.end() && at->starts_with('-')) {
    const bool has_value = *at == "--registry" || *at == "--lang";
    ++at;
    if (has_value && at != words.end()) ++at;
  }
  words.insert(at, std::string(kCommands.front().name));
  return words;
}

}  // namespace

int RunConfiguration(const std::vector<std::string>& arguments, const HostConsole& console) {
  const std::unique_ptr<TextEncoding> encoding = SystemTextEncoding();
  WidgetBoxes boxes(*encoding);
  WidgetMousePointer pointer;
  const HostWindows windows{boxes, pointer};
  return RunHost(WithCommand(arguments), console, {kCommands, {}, &windows});
}

}  // namespace imptable
