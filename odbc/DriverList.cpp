#include "odbc/DriverList.h"

#include <algorithm>
#include <array>

#include "odbc/OdbcApi.h"

namespace imptable {

std::vector<std::string> InstalledDrivers() {
  constexpr SQLSMALLINT kNameBytes = 256;
  std::vector<std::string> drivers;
  SQLHENV environment = SQL_NULL_HENV;
  if (!Succeeded(SQLAllocEnv(&environment))) return drivers;
  for (;;) {
    std::array<SQLCHAR, kNameBytes> name{};
    std::array<SQLCHAR, kNameBytes> attributes{};
    SQLSMALLINT name_length = 0;
    SQLSMALLINT attributes_length = 0;
    const SQLRETURN code =
        SQLDrivers(environment, SQL_FETCH_NEXT, name.data(), kNameBytes, &name_length,
                   attributes.data(), kNameBytes, &attributes_length);
    if (!Succeeded(code)) break;
    const auto length = std::clamp<SQLSMALLINT>(name_length, 0, kNameBytes - 1);
    drivers.emplace_back(reinterpret_cast<const char*>(name.data()),
                         static_cast<std::size_t>(length));
  }
  SQLFreeEnv(environment);
  return drivers;
}

}  // namespace imptable
