#include "platform/system/MousePointer_win32.h"

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

class WindowsMousePointer : public MousePointer {
 public:
  void ShowHourglass() override { SetCursor(LoadCursor(nullptr, IDC_WAIT)); }
  void Reset() override { SetCursor(LoadCursor(nullptr, IDC_ARROW)); }
};

}  // namespace

std::unique_ptr<MousePointer> SystemMousePointer() {
  return std::make_unique<WindowsMousePointer>();
}

}  // namespace imptable
