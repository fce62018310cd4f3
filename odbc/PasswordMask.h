#ifndef ODBC_PASSWORD_MASK_H_
#define ODBC_PASSWORD_MASK_H_

#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// What is shown in place of a password.
inline constexpr std::string_view kHiddenPassword = "******";

/// Hides a password in texts that others made, a driver's messages for one.
class PasswordMask {
 public:
  /// Hides nothing.
  PasswordMask() = default;

  /// Hides the password as it is and as it stands in a connection string, and each part that a
  /// driver may take it for that parts the string at every ";".
  explicit PasswordMask(const std::string& password);

  /// @param cut  whether the text's end may be missing, and with it that of a password.
  /// @return the text with kHiddenPassword in place of the password, wherever it is a word of its
  /// own: neither a letter, a digit nor a "_" may join it.
  std::string Masked(std::string_view text, bool cut) const;

 private:
  void Add(std::string_view form);

  std::vector<std::string> forms_;
};

}  // namespace imptable

#endif  // ODBC_PASSWORD_MASK_H_
