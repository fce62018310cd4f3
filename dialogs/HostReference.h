#ifndef DIALOGS_HOST_REFERENCE_H_
#define DIALOGS_HOST_REFERENCE_H_

#include <string>

#include "core/ModuleCommun.h"

namespace imptable {

/// The text that a field stands for. "@" and a name stand for the value that the host has for this
/// variable of the scenario. Any other text stands for itself.
/// @throws RuntimeFault  no such host object, when the host can't look up a variable.
std::string ResolveReference(const ModuleCommun& module, const std::string& scenario,
                             const std::string& text);

}  // namespace imptable

#endif  // DIALOGS_HOST_REFERENCE_H_
