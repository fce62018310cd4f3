#ifndef ODBC_PASSWORD_MASK_H_
#define ODBC_PASSWORD_MASK_H_

#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// What is shown in place of a password.
inline constexpr std::string_view kHiddenPassword = "******";

/// Hides a password in texts that come from elsewhere, such as a driver's messages.
class PasswordMask {
 public:
  /// Hides nothing.
  PasswordMask() = default;

  /// Hides the password as it is and as a connection string holds it. Also hides the parts before
  /// and after each ";": a driver that splits the string there may take a part for the password.
  explicit PasswordMask(const std::string& password);

  /// @param cut  whether the text may have been cut, perhaps within a password.
  /// @return the text with kHiddenPassword in place of the password, wherever the password is a
  /// word of its own: without a letter, a digit or a "_" next to it.
  std::string Masked(std::string_view text, bool cut) const;

 private:
  void Add(std::string_view form);

  std::vector<std::string> forms_;
};

}  // namespace imptable

#endif  // ODBC_PASSWORD_MASK_H_
