#include "platform/system/WarningBox_win32.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>

#include "platform/system/MessageLoop.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

std::string TextOf(HWND window) {
  std::array<char, 200> text{};
  GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  return text.data();
}

/// What a user sees of the box that is up.
struct ShownBox {
  std::string caption;
  std::string text;
  HICON icon = nullptr;
  HWND owner = nullptr;
  int buttons = 0;
};

/// Looks at the thread's box and answers it with OK.
class Reader {
 public:
  bool Read() {
    EnumThreadWindows(GetCurrentThreadId(), &FindDialog, reinterpret_cast<LPARAM>(&dialog_));
    if (dialog_ == nullptr) return false;
    shown_.caption = TextOf(dialog_);
    shown_.owner = GetWindow(dialog_, GW_OWNER);
    EnumChildWindows(dialog_, &ReadControl, reinterpret_cast<LPARAM>(&shown_));
    PostMessageA(dialog_, WM_COMMAND, IDOK, 0);
    return true;
  }
  const ShownBox& shown() const { return shown_; }

 private:
  static BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
    std::array<char, 20> name{};
    GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    if (std::string(name.data()) != "#32770" || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }

  static BOOL CALLBACK ReadControl(HWND control, LPARAM shown) {
    auto& box = *reinterpret_cast<ShownBox*>(shown);
    std::array<char, 20> name{};
    GetClassNameA(control, name.data(), static_cast<int>(name.size()));
    if (std::string(name.data()) == "Button") {
      ++box.buttons;
    } else if (const auto icon =
                   reinterpret_cast<HICON>(SendMessageA(control, STM_GETICON, 0, 0))) {
      box.icon = icon;
    } else {
      box.text += TextOf(control);
    }
    return TRUE;
  }

  HWND dialog_ = nullptr;
  ShownBox shown_;
};

TEST(WarningBoxOfWindows, ShowsTextAndCaptionWithAnExclamationMarkAndOneButton) {
  const HWND window = CreateWindowExA(0, "STATIC", "host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      100, 100, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr) << GetLastError();
  SetActiveWindow(window);
  Reader reader;
  const auto loop = SystemMessageLoop();
  std::unique_ptr<Timer> timer;
  timer = loop->StartTimer(std::chrono::milliseconds(20), [&] {
    if (reader.Read()) timer.reset();
  });
  SystemWarningBox()->Warn("Table missing", "Import Table");
  EXPECT_EQ(reader.shown().caption, "Import Table");
  EXPECT_EQ(reader.shown().text, "Table missing");
  EXPECT_EQ(reader.shown().icon, LoadIcon(nullptr, IDI_EXCLAMATION));
  EXPECT_EQ(reader.shown().buttons, 1);
  EXPECT_EQ(reader.shown().owner, window);
  DestroyWindow(window);
}

}  // namespace
}  // namespace imptable
