#include "platform/system/WarningBox_win32.h"

#include <string>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

class WindowsWarningBox : public WarningBox {
 public:
  void Warn(std::string_view text, std::string_view caption) override {
    MessageBoxA(GetActiveWindow(), std::string(text).c_str(), std::string(caption).c_str(),
                MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
  }
};

}  // namespace

std::unique_ptr<WarningBox> SystemWarningBox() { return std::make_unique<WindowsWarningBox>(); }

}  // namespace imptable
