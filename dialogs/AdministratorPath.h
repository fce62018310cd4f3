#ifndef DIALOGS_ADMINISTRATOR_PATH_H_
#define DIALOGS_ADMINISTRATOR_PATH_H_

#include <string>

namespace imptable {

/// The whole path of the program that makes and changes ODBC data sources; empty when the system
/// has none. On Windows it is odbcad32.exe in the system folder. Elsewhere $IMPTABLE_ODBC_ADMIN
/// names it; the default is ODBCManageDataSourcesQ4. A name without "/" is looked for on the search
/// path.
std::string AdministratorPath();

}  // namespace imptable

#endif  // DIALOGS_ADMINISTRATOR_PATH_H_
