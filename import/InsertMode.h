#ifndef IMPORT_INSERT_MODE_H_
#define IMPORT_INSERT_MODE_H_

#include "odbc/ModuleODBC.h"

namespace imptable {

/// Inserts every line of the source into the target table, with one prepared statement.
/// @param complete_name  whether the alias is the source's complete file name.
void RunInsertMode(ModuleCommun& module, OdbcSession& session, bool complete_name);

}  // namespace imptable

#endif  // IMPORT_INSERT_MODE_H_
