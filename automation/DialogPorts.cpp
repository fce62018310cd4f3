#include "automation/DialogPorts.h"

#include "dialogs/widgets/WidgetBoxes.h"
#include "platform/system/MousePointer_win32.h"
#include "platform/system/WarningBox_win32.h"

namespace imptable {

DialogPorts::DialogPorts(const TextEncoding& encoding)
    : windows_box_(SystemWarningBox()),
      windows_pointer_(SystemMousePointer()),
      boxes_(std::make_unique<WidgetBoxes>(encoding)),
      pointer_(std::make_unique<WidgetMousePointer>()) {}

DialogPorts::~DialogPorts() = default;

DialogBoxes& DialogPorts::boxes() { return *boxes_; }

void DialogPorts::Warn(std::string_view text, std::string_view caption) {
  WarningBox& box = open_ > 0 ? static_cast<WarningBox&>(*boxes_) : *windows_box_;
  box.Warn(text, caption);
}

void DialogPorts::ShowHourglass() {
  MousePointer& pointer = open_ > 0 ? *pointer_ : *windows_pointer_;
  pointer.ShowHourglass();
}

void DialogPorts::Reset() {
  MousePointer& pointer = open_ > 0 ? *pointer_ : *windows_pointer_;
  pointer.Reset();
}

}  // namespace imptable
