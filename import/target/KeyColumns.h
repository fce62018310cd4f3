#ifndef IMPORT_TARGET_KEY_COLUMNS_H_
#define IMPORT_TARGET_KEY_COLUMNS_H_

#include <string>
#include <vector>

#include "import/target/TargetTable.h"

namespace imptable {

/// Chooses the columns that identify a row: the table's primary key when "PrimKey" is set, else the
/// pieces of "Cle/Index" between its commas, exactly as they stand.
/// @return false when there is no key, the driver can't list it, or the query failed. That has been
/// reported.
bool ChooseKeyColumns(ModuleCommun& module, OdbcSession& session, std::vector<std::string>& keys);

/// name " = ?" for each key, joined by " AND ".
std::string KeyCondition(const OdbcSession& session, const std::vector<std::string>& keys);

/// Binds the keys' parameters, from `number` on, to the buffers of the columns of the same name.
/// @return the first code that isn't 0, else 0.
/// @throws RuntimeFault  index out of range, naming the key, when no column has its name.
SQLRETURN BindKeys(TargetTable& table, SQLHSTMT statement, SQLUSMALLINT number,
                   const std::vector<std::string>& keys);

}  // namespace imptable

#endif  // IMPORT_TARGET_KEY_COLUMNS_H_
