#include "host/HostContext.h"

#include "host/HostError.h"
#include "host/registry/KeyName.h"
#include "host/registry/NewRegistry.h"
#include "host/registry/RegistryLocation.h"
#include "host/tasks/ShownValue.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {

Language LanguageIn(const RegistryStore& store) {
  const std::optional<RegistryValue> value =
      store.Read({kHkeyLocalMachine, "SOFTWARE\\KALDO\\Configuration"}, "Lang");
  return value && ShownValue(*value) == std::to_string(kEnglishOffset) ? Language::kEnglish
                                                                       : Language::kFrench;
}

HostContext::HostContext(const std::string& registry_file, std::optional<Language> language,
                         std::ostream& err, const HostWindows* windows)
    : registry_path(registry_file),
      encoding(SystemTextEncoding()),
      store(registry_path, FirstRegistryEdits(LanguageOfLocale())),
      registry(store, *encoding),
      message_loop(SystemMessageLoop()),
      clock(SystemClock()),
      files(SystemFileSystem()),
      warning_box(err),
      profile_file(*files, *encoding),
      state(Platform{registry, *message_loop, *clock, *encoding, *files,
                     windows != nullptr ? windows->warning_box : warning_box,
                     windows != nullptr ? windows->mouse_pointer : mouse_pointer, profile_file},
            library),
      texts(language ? *language : LanguageIn(store), *encoding) {
  library.Attach(state.commun);
  state.commun.language_offset = OffsetOf(texts.language());
}

void HostContext::RequireRegistry() const {
  if (store.Exists()) return;
  throw HostError(ExitCode::kMissing, HostText::kNoRegistry, {registry_path});
}

void HostContext::RequireScenario(const std::string& scenario) const {
  RequireName(*encoding, scenario);
  RequireRegistry();
  if (!store.KeyExists(ScenarioKey(ToUtf8(scenario)))) {
    throw HostError(ExitCode::kMissing, HostText::kNoScenario, {scenario});
  }
}

void HostContext::RequireTask(const std::string& scenario, const std::string& task) const {
  RequireName(*encoding, scenario);
  RequireName(*encoding, task);
  RequireScenario(scenario);
  if (!store.KeyExists(TaskKey(ToUtf8(scenario), ToUtf8(task)))) {
    throw HostError(ExitCode::kMissing, HostText::kNoTask, {task, scenario});
  }
}

}  // namespace imptable
