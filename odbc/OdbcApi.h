#ifndef ODBC_ODBC_API_H_
#define ODBC_ODBC_API_H_

// The one place that includes the driver manager's headers: on Windows they need <windows.h> first.
#ifdef _WIN32
#include "platform/windows/Windows_win32.h"
#endif
#include <sql.h>
#include <sqlext.h>

#include <string>
#include <string_view>

namespace imptable {

/// The driver manager's functions take 8-bit text as pointers to non-const unsigned characters and
/// don't write through them.
inline SQLCHAR* SqlText(const std::string& text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

/// 0 and 1 (success with information) count as success where nothing else is said.
inline bool Succeeded(SQLRETURN code) {
  return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

/// SQL types as an ODBC 2.x driver reports them: never change.
inline constexpr SQLSMALLINT kSqlChar = 1;
inline constexpr SQLSMALLINT kSqlSmallInt = 5;
inline constexpr SQLSMALLINT kSqlFloat = 6;
inline constexpr SQLSMALLINT kSqlDate = 9;
inline constexpr SQLSMALLINT kSqlTime = 10;
inline constexpr SQLSMALLINT kSqlTimestamp = 11;
inline constexpr SQLSMALLINT kSqlVarchar = 12;

}  // namespace imptable

#endif  // ODBC_ODBC_API_H_
