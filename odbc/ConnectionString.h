#ifndef ODBC_CONNECTION_STRING_H_
#define ODBC_CONNECTION_STRING_H_

#include <string>
#include <string_view>

namespace imptable {

/// A value as it stands in a connection string: in braces, each closing one within doubled, where
/// it has a ";", a brace or an outer blank.
std::string ConnectionValue(std::string_view value);

/// "DSN=...;UID=...;PWD=..." with the values in that form. Without user and password neither is
/// there, so that those of the data source count; with a user, an empty password is ";PWD=;".
std::string ConnectionString(std::string_view data_source, std::string_view user,
                             std::string_view password);

}  // namespace imptable

#endif  // ODBC_CONNECTION_STRING_H_
