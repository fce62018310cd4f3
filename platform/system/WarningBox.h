#ifndef PLATFORM_SYSTEM_WARNING_BOX_H_
#define PLATFORM_SYSTEM_WARNING_BOX_H_

#include <string_view>

namespace imptable {

/// A message box with the exclamation icon and one OK button.
class WarningBox {
 public:
  virtual ~WarningBox() = default;
  virtual void Warn(std::string_view text, std::string_view caption) = 0;
};

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_WARNING_BOX_H_
