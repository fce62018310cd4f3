#ifndef IMPORT_UPDATE_INSERT_MODE_H_
#define IMPORT_UPDATE_INSERT_MODE_H_

#include "odbc/ModuleODBC.h"

namespace imptable {

/// Changes, for every line of the source, the rows that have the line's key; inserts the line when
/// that changed none.
/// @param complete_name  whether the alias is the source's complete file name.
void RunUpdateInsertMode(ModuleCommun& module, OdbcSession& session, bool complete_name);

}  // namespace imptable

#endif  // IMPORT_UPDATE_INSERT_MODE_H_
