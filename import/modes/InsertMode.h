#ifndef IMPORT_MODES_INSERT_MODE_H_
#define IMPORT_MODES_INSERT_MODE_H_

#include <memory>

#include "core/ModuleCommun.h"
#include "import/modes/ModeRoutine.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Inserts every line of the source into the target table, with one prepared statement.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeInsertMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_MODES_INSERT_MODE_H_
