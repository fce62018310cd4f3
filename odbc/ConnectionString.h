#ifndef ODBC_CONNECTION_STRING_H_
#define ODBC_CONNECTION_STRING_H_

#include <string>
#include <string_view>

namespace imptable {

/// A value in the form that a connection string needs. A value with a ";", a brace, or a blank at
/// either end is put in braces, and each "}" in it is doubled.
std::string ConnectionValue(std::string_view value);

/// "DSN=...;UID=...;PWD=..." with the values in that form. Without user and password both are left
/// out, and the data source's own count. With a user, an empty password is ";PWD=;".
std::string ConnectionString(std::string_view data_source, std::string_view user,
                             std::string_view password);

}  // namespace imptable

#endif  // ODBC_CONNECTION_STRING_H_
