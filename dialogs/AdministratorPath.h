#ifndef DIALOGS_ADMINISTRATOR_PATH_H_
#define DIALOGS_ADMINISTRATOR_PATH_H_

#include <string>

namespace imptable {

/// The whole path of the program that makes and changes ODBC data sources; empty when the system
/// has none. On Windows odbcad32.exe in the system folder, elsewhere what $IMPTABLE_ODBC_ADMIN
/// names, else ODBCManageDataSourcesQ4; both looked for on the search path.
std::string AdministratorPath();

}  // namespace imptable

#endif  // DIALOGS_ADMINISTRATOR_PATH_H_
