#ifndef IMPORT_DELETE_MODE_H_
#define IMPORT_DELETE_MODE_H_

#include "odbc/ModuleODBC.h"

namespace imptable {

/// Removes, for every line of the source, the rows of the target table that have the line's key.
/// @param complete_name  whether the alias is the source's complete file name.
void RunDeleteMode(ModuleCommun& module, OdbcSession& session, bool complete_name);

}  // namespace imptable

#endif  // IMPORT_DELETE_MODE_H_
