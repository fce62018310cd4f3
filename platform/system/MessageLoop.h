#ifndef PLATFORM_SYSTEM_MESSAGE_LOOP_H_
#define PLATFORM_SYSTEM_MESSAGE_LOOP_H_

#include <chrono>
#include <functional>
#include <memory>

namespace imptable {

/// An armed timer; destroying it stops the ticks.
class Timer {
 public:
  virtual ~Timer() = default;
};

/// The thread's message loop. Only Yield() delivers ticks, on the same thread. The ticks that a
/// timer has missed count as one. On Windows the thread's other message loops, such as a dialog's,
/// deliver ticks too; an exception from such a tick is lost.
class MessageLoop {
 public:
  virtual ~MessageLoop() = default;

  /// Runs what is due. Costs nanoseconds when nothing is; may be called from within a tick.
  virtual void Yield() = 0;

  /// @param tick  called at every tick until the timer is destroyed; may itself destroy it.
  virtual std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                            std::function<void()> tick) = 0;
};

std::unique_ptr<MessageLoop> SystemMessageLoop();

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MESSAGE_LOOP_H_
