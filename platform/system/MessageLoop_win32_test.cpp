#include "platform/system/MessageLoop_win32.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

using namespace std::chrono_literals;

/// A window of this thread that nobody sees; `on_message` is what it does with WM_APP.
class HiddenWindow {
 public:
  explicit HiddenWindow(std::function<void()> on_message)
      : on_message_(std::move(on_message)),
        raw_(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                             nullptr)) {
    EXPECT_NE(raw_, nullptr) << GetLastError();
    SetWindowLongPtrA(raw_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(raw_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  }
  ~HiddenWindow() { DestroyWindow(raw_); }
  HiddenWindow(const HiddenWindow&) = delete;
  HiddenWindow& operator=(const HiddenWindow&) = delete;

  void Post() const { EXPECT_NE(PostMessageA(raw_, WM_APP, 0, 0), 0); }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    if (message != WM_APP) return DefWindowProcA(window, message, wide, parameter);
    reinterpret_cast<HiddenWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA))->on_message_();
    return 0;
  }

  std::function<void()> on_message_;
  HWND raw_;
};

/// A message loop for which time moves only when a test says so.
class MessageLoopOfWindows : public testing::Test {
 protected:
  void Move() { ++time_; }

  /// Runs another message loop of the thread, as a modal dialog does.
  static void RunForeignLoopUntil(const std::function<bool()>& reached) {
    MSG message;
    while (!reached() && GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  }

  int handled_ = 0;
  HiddenWindow window_{[this] { ++handled_; }};
  std::unique_ptr<MessageLoop> loop_ = MakeMessageLoop(+[]() WINAPI { return time_; });

 private:
  static inline DWORD time_ = 0xFFFFFFF0;
};

TEST_F(MessageLoopOfWindows, HandlesTheMessagesThatWait) {
  for (int i = 0; i < 3; ++i) window_.Post();
  loop_->Yield();
  EXPECT_EQ(handled_, 3);
}

TEST_F(MessageLoopOfWindows, LooksIntoTheQueueOnlyWhenTimeHasMoved) {
  loop_->Yield();
  window_.Post();
  loop_->Yield();
  EXPECT_EQ(handled_, 0);
  Move();
  loop_->Yield();
  EXPECT_EQ(handled_, 1);
}

TEST_F(MessageLoopOfWindows, HandlesMessagesWithinAMessage) {
  int inner = 0;
  const HiddenWindow outer([&] {
    window_.Post();
    Move();
    loop_->Yield();
    inner = handled_;
  });
  outer.Post();
  loop_->Yield();
  EXPECT_EQ(inner, 1);
}

TEST_F(MessageLoopOfWindows, ReturnsThoughEachMessageBringsTheNext) {
  int rounds = 0;
  const HiddenWindow* again = nullptr;
  const HiddenWindow restless([&] {
    ++rounds;
    again->Post();
  });
  again = &restless;
  restless.Post();
  loop_->Yield();
  EXPECT_GT(rounds, 100);
}

TEST_F(MessageLoopOfWindows, LeavesTheRequestToQuitToTheOutermostLoop) {
  window_.Post();
  PostQuitMessage(7);
  for (int i = 0; i < 3; ++i) {
    loop_->Yield();
    Move();
  }
  EXPECT_EQ(handled_, 1);
  MSG message{};
  ASSERT_NE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE), 0);
  EXPECT_EQ(message.message, UINT{WM_QUIT});
  EXPECT_EQ(message.wParam, 7u);
  EXPECT_EQ(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE), 0) << "it was put back once";
}

TEST_F(MessageLoopOfWindows, TicksInAnyLoopOfTheThread) {
  int ticks = 0;
  const auto timer = loop_->StartTimer(20ms, [&] { ++ticks; });
  RunForeignLoopUntil([&] { return ticks == 2; });
  EXPECT_EQ(ticks, 2);
}

TEST_F(MessageLoopOfWindows, KeepsTheExceptionOfATickFromAForeignLoop) {
  int ticks = 0;
  auto timer = loop_->StartTimer(20ms, [&] {
    ++ticks;
    throw std::runtime_error("tick");
  });
  RunForeignLoopUntil([&] { return ticks == 2; });
  EXPECT_EQ(ticks, 2);
  timer.reset();
  EXPECT_NO_THROW(loop_->Yield());
}

TEST_F(MessageLoopOfWindows, ForgetsTheExceptionOfATickOnceItIsPassedOn) {
  int ticks = 0;
  {
    const auto timer = loop_->StartTimer(10ms, [&] {
      ++ticks;
      throw std::runtime_error("tick");
    });
    Sleep(50);
    EXPECT_THROW(loop_->Yield(), std::runtime_error);
  }
  Move();
  EXPECT_NO_THROW(loop_->Yield());
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace imptable
