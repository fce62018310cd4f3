#ifndef IMPORT_PRE_IMPORT_DELETION_H_
#define IMPORT_PRE_IMPORT_DELETION_H_

#include "core/ModuleCommun.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Empties the target table with TRUNCATE TABLE. A failure is reported and sets the pre-deletion
/// failed flag; a fault is reported and doesn't.
void RunGlobalDeletion(ModuleCommun& module, OdbcSession& session);

/// Removes the ranges of rows that the selection file lists: one DELETE for each of its sections
/// "Table01" to "Table20", with a condition for each of their keys "01" to "10", whose value is
/// column "," low bound "," high bound. The first failure ends the deletion; what was deleted
/// before stays deleted. Failures and faults as in the global deletion.
void RunSelectiveDeletion(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_PRE_IMPORT_DELETION_H_
