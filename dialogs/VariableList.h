#ifndef DIALOGS_VARIABLE_LIST_H_
#define DIALOGS_VARIABLE_LIST_H_

#include <string>
#include <vector>

#include "core/ModuleCommun.h"
#include "dialogs/ImpTableControls.h"

namespace imptable {

/// The names of one kind, under their title.
struct VariableGroup {
  std::string title;
  std::vector<std::string> names;

  bool operator==(const VariableGroup&) const = default;
};

/// What the small dialog shows in which a variable or a constant is picked.
struct VariableListState {
  std::string caption;
  std::string cmdValider;  // captions
  std::string cmdAnnuler;
  std::vector<VariableGroup> groups;

  bool operator==(const VariableListState&) const = default;
};

/// The host's names of the kinds, in the host's order, variables first.
/// @throws RuntimeFault  no such host object.
VariableListState ListVariables(const ModuleCommun& module, const std::string& scenario,
                                VariableKinds kinds);

/// The field's reference, " val: " and what the host holds for it; empty when the text is no
/// reference. A host that can't say leaves the value empty.
std::string ReferenceTooltip(const ModuleCommun& module, const std::string& scenario,
                             const std::string& text);

}  // namespace imptable

#endif  // DIALOGS_VARIABLE_LIST_H_
