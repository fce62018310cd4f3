#include "platform/system/MessageLoop_win32.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/windows/WindowsError_win32.h"

namespace imptable {
namespace {

/// Without a limit, a window that never marks itself as painted would keep one Yield busy for ever.
constexpr int kMostMessages = 1000;

/// What a loop and its timers share; the timers may outlive the loop.
struct LoopState {
  int yields_running = 0;
  std::exception_ptr tick_failure;
};

class ThreadTimer;

/// The thread's armed timers, linked. A tick gets only its timer's number from Windows.
thread_local ThreadTimer* first_timer = nullptr;

class ThreadTimer : public Timer {
 public:
  ThreadTimer(std::shared_ptr<LoopState> loop, std::chrono::milliseconds interval,
              std::function<void()> tick)
      : tick_(std::make_shared<Tick>(Tick{std::move(loop), std::move(tick)})) {
    const auto elapse = std::clamp<std::chrono::milliseconds::rep>(
        interval.count(), USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    number_ = SetTimer(nullptr, 0, static_cast<UINT>(elapse), &OnTick);
    if (number_ == 0) throw std::system_error(LastError(), "SetTimer");
    next_ = std::exchange(first_timer, this);
  }

  ~ThreadTimer() override {
    KillTimer(nullptr, number_);
    ThreadTimer** link = &first_timer;
    while (*link != nullptr && *link != this) link = &(*link)->next_;
    if (*link == this) *link = next_;
  }

  ThreadTimer(const ThreadTimer&) = delete;
  ThreadTimer& operator=(const ThreadTimer&) = delete;

 private:
  struct Tick {
    std::shared_ptr<LoopState> loop;
    std::function<void()> action;
    bool running = false;
  };

  static void CALLBACK OnTick(HWND, UINT, UINT_PTR number, DWORD) noexcept {
    const ThreadTimer* timer = first_timer;
    while (timer != nullptr && timer->number_ != number) timer = timer->next_;
    if (timer == nullptr || timer->tick_->running) return;
    const std::shared_ptr<Tick> tick = timer->tick_;  // the timer may end in its own tick
    tick->running = true;
    try {
      tick->action();
    } catch (...) {
      if (tick->loop->yields_running > 0) tick->loop->tick_failure = std::current_exception();
    }
    tick->running = false;
  }

  std::shared_ptr<Tick> tick_;
  UINT_PTR number_ = 0;
  ThreadTimer* next_ = nullptr;
};

class WindowsMessageLoop : public MessageLoop {
 public:
  explicit WindowsMessageLoop(DWORD(WINAPI* now)()) : now_(now), last_pump_(now() - 1) {}

  void Yield() override {
    const DWORD now = now_();
    if (now == last_pump_) return;
    last_pump_ = now;
    const std::shared_ptr<LoopState> state = state_;
    ++state->yields_running;
    Pump(*state);
    --state->yields_running;
    if (state->tick_failure) std::rethrow_exception(std::exchange(state->tick_failure, nullptr));
  }

  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                    std::function<void()> tick) override {
    return std::make_unique<ThreadTimer>(state_, interval, std::move(tick));
  }

 private:
  /// Stops at the first tick that fails. Stops at a request to quit, too, and posts it again for
  /// the thread's outermost loop.
  static void Pump(const LoopState& state) {
    MSG message;
    for (int i = 0; i < kMostMessages && !state.tick_failure; ++i) {
      if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == 0) return;
      if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  DWORD(WINAPI* now_)();
  DWORD last_pump_;
  std::shared_ptr<LoopState> state_ = std::make_shared<LoopState>();
};

}  // namespace

std::unique_ptr<MessageLoop> MakeMessageLoop(DWORD(WINAPI* now)()) {
  return std::make_unique<WindowsMessageLoop>(now);
}

std::unique_ptr<MessageLoop> SystemMessageLoop() { return MakeMessageLoop(GetTickCount); }

}  // namespace imptable
