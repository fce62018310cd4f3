#ifndef IMPORT_PRE_IMPORT_DELETION_H_
#define IMPORT_PRE_IMPORT_DELETION_H_

#include "core/ModuleCommun.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Empties the target table with TRUNCATE TABLE. A failure is reported and sets the pre-deletion
/// failed flag. A fault is reported and doesn't set it.
void RunGlobalDeletion(ModuleCommun& module, OdbcSession& session);

/// Removes the ranges of rows that the selection file lists: one DELETE for each section from
/// "Table01" to "Table20". Each key of a section, from "01" to "10", gives one condition. The key's
/// value is column "," low bound "," high bound. The first failure ends the deletion; what was
/// deleted before stays deleted. Failures and faults as in the global deletion.
void RunSelectiveDeletion(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_PRE_IMPORT_DELETION_H_
