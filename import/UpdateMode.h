#ifndef IMPORT_UPDATE_MODE_H_
#define IMPORT_UPDATE_MODE_H_

#include <memory>

#include "import/ImportLoop.h"

namespace imptable {

/// Changes, for every line of the source, the rows of the target table that have the line's key.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeUpdateMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_UPDATE_MODE_H_
