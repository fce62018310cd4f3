#include "host/tasks/ShownPassword.h"

#include <optional>

#include "core/TaskSettings.h"
#include "host/tasks/ShownValue.h"
#include "odbc/PasswordMask.h"
#include "platform/text/NameFolding.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

constexpr std::string_view kPasswordName = "Password";

}  // namespace

bool IsPasswordName(std::string_view name) {
  return FoldName(name.substr(name.rfind('\\') + 1)) == FoldName(kPasswordName);
}

std::string HiddenForm(const RegistryValue& password) {
  const std::string shown = ShownValue(password);
  return shown.empty() || IsVariableReference(shown) ? shown : std::string(kHiddenPassword);
}

PasswordVariables::PasswordVariables(const RegistryStore& store, const std::string& scenario) {
  for (const std::string& task : store.SubkeyNames(TasksKey(scenario))) {
    const std::optional<RegistryValue> value = store.Read(TaskKey(scenario, task), kPasswordName);
    if (!value) continue;
    const std::string text = ShownValue(*value);
    if (IsVariableReference(text)) folded_names_.insert(FoldName(text.substr(1)));
  }
}

bool PasswordVariables::Include(std::string_view name) const {
  return folded_names_.contains(FoldName(name));
}

}  // namespace imptable
