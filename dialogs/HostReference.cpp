#include "dialogs/HostReference.h"

#include "core/TaskSettings.h"

namespace imptable {

std::string ResolveReference(const ModuleCommun& module, const std::string& scenario,
                             const std::string& text) {
  if (!IsVariableReference(text)) return text;
  return module.host.Variable(module.location, scenario, text.substr(1)).value_or("");
}

}  // namespace imptable
