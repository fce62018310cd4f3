#ifndef DIALOGS_WIDGETS_WIDGET_BOXES_H_
#define DIALOGS_WIDGETS_WIDGET_BOXES_H_

#include "dialogs/DialogBoxes.h"
#include "dialogs/widgets/WidgetText.h"
#include "platform/system/MousePointer.h"
#include "platform/system/WarningBox.h"

namespace imptable {

/// Message boxes over the window that is in front.
class WidgetBoxes : public DialogBoxes, public WarningBox {
 public:
  /// @param encoding  borrowed.
  explicit WidgetBoxes(const TextEncoding& encoding) : text_(encoding) {}

  void Warn(std::string_view text, std::string_view caption) override;
  void Inform(std::string_view text, std::string_view caption) override;
  bool Ask(std::string_view text, std::string_view caption) override;

 private:
  int Show(std::string_view text, std::string_view caption, long style) const;

  WidgetText text_;
};

/// The pointer over the toolkit's windows.
class WidgetMousePointer : public MousePointer {
 public:
  void ShowHourglass() override;
  void Reset() override;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_WIDGET_BOXES_H_
