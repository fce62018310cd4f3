#ifndef ODBC_DRIVER_LIST_H_
#define ODBC_DRIVER_LIST_H_

#include <string>
#include <vector>

namespace imptable {

/// The names of the ODBC drivers that the driver manager knows, in its order. A data source may
/// name its driver by one of them.
std::vector<std::string> InstalledDrivers();

}  // namespace imptable

#endif  // ODBC_DRIVER_LIST_H_
