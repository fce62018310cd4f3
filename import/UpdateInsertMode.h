#ifndef IMPORT_UPDATE_INSERT_MODE_H_
#define IMPORT_UPDATE_INSERT_MODE_H_

#include <memory>

#include "import/ImportLoop.h"

namespace imptable {

/// Changes, for every line of the source, the rows that have the line's key; inserts the line when
/// that changed none.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeUpdateInsertMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_UPDATE_INSERT_MODE_H_
