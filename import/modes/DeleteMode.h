#ifndef IMPORT_MODES_DELETE_MODE_H_
#define IMPORT_MODES_DELETE_MODE_H_

#include <memory>

#include "core/ModuleCommun.h"
#include "import/modes/ModeRoutine.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Removes, for every line of the source, the rows of the target table that have the line's key.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeDeleteMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_MODES_DELETE_MODE_H_
