#ifndef IMPORT_MODES_UPDATE_INSERT_MODE_H_
#define IMPORT_MODES_UPDATE_INSERT_MODE_H_

#include <memory>

#include "core/ModuleCommun.h"
#include "import/modes/ModeRoutine.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Changes, for every line of the source, the rows that have the line's key; inserts the line when
/// that changed none.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeUpdateInsertMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_MODES_UPDATE_INSERT_MODE_H_
