#include "tests/win32/dialogs/HostWindow.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "tests/win32/dialogs/ScreenPerson.h"

namespace imptable {
namespace {

constexpr UINT kServe = WM_APP;
constexpr const wchar_t* kClass = L"PlainHost";
constexpr int kLeft = 40;
constexpr int kTop = 30;
constexpr int kWidth = 900;
constexpr int kHeight = 300;

}  // namespace

HostWindow::HostWindow() {
  WNDCLASSW description{};
  description.lpfnWndProc = &OnMessage;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
  description.lpszClassName = kClass;
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, kClass, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, kLeft, kTop,
                            kWidth, kHeight, nullptr, nullptr, description.hInstance, nullptr);
  if (window_ == nullptr) throw std::runtime_error("no window");
  SetForegroundWindow(window_);
  HandleMessages();
}

HostWindow::~HostWindow() { DestroyWindow(window_); }

LRESULT CALLBACK HostWindow::OnMessage(HWND window, UINT message, WPARAM word, LPARAM pointer) {
  if (message != kServe) return DefWindowProcW(window, message, word, pointer);
  (*reinterpret_cast<const std::function<void()>*>(pointer))();
  return 0;
}

void HostWindow::HandleMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void HostWindow::Serve(const std::function<void()>& call,
                       const std::function<void(ScreenPerson&)>& acts) {
  std::atomic<bool> is_served = false;
  std::atomic<bool> is_done = false;
  std::string failure;
  std::thread person([&] {
    ScreenPerson someone(window_);
    try {
      acts(someone);
    } catch (const std::exception& error) {
      failure = error.what();
      while (!is_served) someone.CloseDialogs();
    }
    is_done = true;
  });
  const std::function<void()> serve = [&] {
    call();
    is_served = true;
  };
  PostMessageW(window_, kServe, 0, reinterpret_cast<LPARAM>(&serve));
  while (!is_served || !is_done) {
    HandleMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  person.join();
  EXPECT_EQ(failure, "");
}

}  // namespace imptable
