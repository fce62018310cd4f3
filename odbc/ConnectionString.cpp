#include "odbc/ConnectionString.h"

namespace imptable {

std::string ConnectionValue(std::string_view value) {
  const bool outer_blank = value.starts_with(' ') || value.ends_with(' ');
  if (!outer_blank && value.find_first_of(";{}") == std::string_view::npos) {
    return std::string(value);
  }
  std::string braced = "{";
  for (const char byte : value) {
    if (byte == '}') braced += '}';
    braced += byte;
  }
  return braced + '}';
}

std::string ConnectionString(std::string_view data_source, std::string_view user,
                             std::string_view password) {
  std::string text = "DSN=" + ConnectionValue(data_source);
  if (user.empty() && password.empty()) return text;
  if (!user.empty()) text += ";UID=" + ConnectionValue(user);
  return text + (password.empty() ? ";PWD=;" : ";PWD=" + ConnectionValue(password));
}

}  // namespace imptable
