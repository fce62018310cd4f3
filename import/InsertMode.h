#ifndef IMPORT_INSERT_MODE_H_
#define IMPORT_INSERT_MODE_H_

#include <memory>

#include "import/ImportLoop.h"

namespace imptable {

/// Inserts every line of the source into the target table, with one prepared statement.
/// Both are borrowed.
std::unique_ptr<ModeRoutine> MakeInsertMode(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_INSERT_MODE_H_
