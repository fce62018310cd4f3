#ifndef AUTOMATION_DIALOG_PORTS_H_
#define AUTOMATION_DIALOG_PORTS_H_

#include <memory>

#include "dialogs/DialogBoxes.h"
#include "platform/system/MousePointer.h"
#include "platform/system/WarningBox.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

class WidgetBoxes;
class WidgetMousePointer;

/// The component's message boxes and mouse pointer. While a dialog is open they are those of the
/// dialogs, else those of Windows.
class DialogPorts final : public WarningBox, public MousePointer {
 public:
  /// @param encoding  borrowed.
  explicit DialogPorts(const TextEncoding& encoding);
  ~DialogPorts() override;

  void Warn(std::string_view text, std::string_view caption) override;
  void ShowHourglass() override;
  void Reset() override;

  /// The message boxes of an open dialog.
  DialogBoxes& boxes();

  /// A dialog is open while one of these lives.
  class Opening {
   public:
    explicit Opening(DialogPorts& ports) : ports_(ports) { ++ports_.open_; }
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening() { --ports_.open_; }

   private:
    DialogPorts& ports_;
  };

 private:
  int open_ = 0;
  std::unique_ptr<WarningBox> windows_box_;
  std::unique_ptr<MousePointer> windows_pointer_;
  std::unique_ptr<WidgetBoxes> boxes_;
  std::unique_ptr<WidgetMousePointer> pointer_;
};

}  // namespace imptable

#endif  // AUTOMATION_DIALOG_PORTS_H_
