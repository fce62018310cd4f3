#ifndef DIALOGS_DIALOG_BOXES_H_
#define DIALOGS_DIALOG_BOXES_H_

#include <string_view>

namespace imptable {

/// The message boxes of the dialogs, modal to the dialog that shows them.
class DialogBoxes {
 public:
  virtual ~DialogBoxes() = default;

  /// Exclamation icon and an OK button.
  virtual void Warn(std::string_view text, std::string_view caption) = 0;

  /// Information icon and an OK button.
  virtual void Inform(std::string_view text, std::string_view caption) = 0;

  /// Question icon, Yes and No.
  /// @return true for Yes; closing the box is a No.
  virtual bool Ask(std::string_view text, std::string_view caption) = 0;
};

}  // namespace imptable

#endif  // DIALOGS_DIALOG_BOXES_H_
