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

/// What the small dialog for picking a variable or a constant shows.
struct VariableListState {
  std::string caption;
  std::string cmdValider;  // captions
  std::string cmdAnnuler;
  std::vector<VariableGroup> groups;

  bool operator==(const VariableListState&) const = default;
};

/// The host's names of these kinds, in the host's order, variables first.
/// @throws RuntimeFault  no such host object.
VariableListState ListVariables(const ModuleCommun& module, const std::string& scenario,
                                VariableKinds kinds);

/// A tooltip: the field's reference, " val: " and the value that the host has for it. Empty when
/// the text is no reference. The value is empty when the host can't give it.
std::string ReferenceTooltip(const ModuleCommun& module, const std::string& scenario,
                             const std::string& text);

}  // namespace imptable

#endif  // DIALOGS_VARIABLE_LIST_H_
