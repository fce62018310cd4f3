#ifndef DIALOGS_IMP_TABLE_RULES_H_
#define DIALOGS_IMP_TABLE_RULES_H_

#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "core/TaskSettings.h"
#include "dialogs/ImpTableState.h"

namespace imptable {

// What one control of FrmImpTable does to the others.

/// Sets every caption from the catalogue.
void SetCaptions(ImpTableState& state, const ModuleCommun& module);

/// Sets each control as in a new task: INSERT, delimited, the alias's own file.
void SetNewTask(ImpTableState& state);

/// Copies an existing task's settings and applies the rules, in the order in which they depend on
/// each other. A number that selects no button selects the first one.
void SetTask(ImpTableState& state, const ModuleCommun& module, const ImportSettings& settings);

/// The key can be given in every mode but INSERT; the handling of duplicates only in INSERT.
void ChooseMode(ImpTableState& state, int index);

void CheckPrimaryKey(ImpTableState& state, bool checked);
void ChooseFileFormat(ImpTableState& state, int index);
void ChooseFileOption(ImpTableState& state, const ModuleCommun& module, int index);
void TypePassword(ImpTableState& state, const std::string& text);

/// Empties what belongs to the former data source: user, password, owner, table, alias and key.
void EmptySourceFields(ImpTableState& state);

inline bool IsEnabled(const ImpTableState& state, std::string_view control) {
  return !state.disabled.contains(control);
}

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_RULES_H_
