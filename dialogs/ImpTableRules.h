#ifndef DIALOGS_IMP_TABLE_RULES_H_
#define DIALOGS_IMP_TABLE_RULES_H_

#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "core/TaskSettings.h"
#include "dialogs/ImpTableState.h"

namespace imptable {

// What one control of FrmImpTable does to the others.

/// Every caption of the catalogue.
void SetCaptions(ImpTableState& state, const ModuleCommun& module);

/// Each control as in a new task: INSERT, delimited, the alias's own file.
void SetNewTask(ImpTableState& state);

/// Copies an existing task's settings, rules included, in the order in which they depend on each
/// other. A number that selects no button selects the first one.
void SetTask(ImpTableState& state, const ModuleCommun& module, const ImportSettings& settings);

/// A key belongs to every mode but INSERT, the handling of duplicates to INSERT alone.
void ChooseMode(ImpTableState& state, int index);

void CheckPrimaryKey(ImpTableState& state, bool checked);
void ChooseFileFormat(ImpTableState& state, int index);
void ChooseFileOption(ImpTableState& state, const ModuleCommun& module, int index);
void TypePassword(ImpTableState& state, const std::string& text);

/// What belongs to the former data source: user, password, owner, table, alias and key.
void EmptySourceFields(ImpTableState& state);

inline bool IsEnabled(const ImpTableState& state, std::string_view control) {
  return !state.disabled.contains(control);
}

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_RULES_H_
