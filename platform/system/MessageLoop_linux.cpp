#include "platform/system/MessageLoop_linux.h"

#include <time.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace imptable {
namespace {

using std::chrono::nanoseconds;

constexpr nanoseconds kNever = nanoseconds::max();

/// One armed timer.
struct Entry {
  nanoseconds interval;
  nanoseconds due;
  std::function<void()> tick;
  bool armed = true;
  bool running = false;
};

/// The armed timers and when the first of them is due; a timer whose tick is running isn't due.
class Schedule {
 public:
  nanoseconds next_due() const { return next_due_; }

  std::shared_ptr<Entry> Add(nanoseconds now, nanoseconds interval, std::function<void()> tick) {
    auto entry = std::make_shared<Entry>(Entry{interval, now + interval, std::move(tick)});
    entries_.push_back(entry);
    next_due_ = std::min(next_due_, entry->due);
    return entry;
  }

  void Remove(const std::shared_ptr<Entry>& entry) {
    entry->armed = false;
    std::erase(entries_, entry);
    FindNextDue();
  }

  /// Each timer that is due ticks once, however many ticks it has missed.
  void RunDue(nanoseconds now) {
    const auto entries = entries_;  // a tick may start and stop timers
    for (const auto& entry : entries) {
      if (!entry->armed || entry->running || entry->due > now) continue;
      entry->due = now + entry->interval;
      const Running running(*this, *entry);
      entry->tick();
    }
  }

 private:
  /// Keeps a tick from being entered again while it runs, even when it ends with an exception.
  class Running {
   public:
    Running(Schedule& schedule, Entry& entry) : schedule_(schedule), entry_(entry) { Set(true); }
    ~Running() { Set(false); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    void Set(bool running) {
      entry_.running = running;
      schedule_.FindNextDue();
    }

    Schedule& schedule_;
    Entry& entry_;
  };

  void FindNextDue() {
    next_due_ = kNever;
    for (const auto& entry : entries_) {
      if (!entry->running) next_due_ = std::min(next_due_, entry->due);
    }
  }

  std::vector<std::shared_ptr<Entry>> entries_;
  nanoseconds next_due_ = kNever;
};

class ScheduledTimer : public Timer {
 public:
  ScheduledTimer(std::shared_ptr<Schedule> schedule, std::shared_ptr<Entry> entry)
      : schedule_(std::move(schedule)), entry_(std::move(entry)) {}
  ~ScheduledTimer() override { schedule_->Remove(entry_); }

 private:
  std::shared_ptr<Schedule> schedule_;
  std::shared_ptr<Entry> entry_;
};

class LinuxMessageLoop : public MessageLoop {
 public:
  explicit LinuxMessageLoop(nanoseconds (*now)()) : now_(now) {}

  void Yield() override {
    if (schedule_->next_due() == kNever) return;
    const nanoseconds now = now_();
    if (now >= schedule_->next_due()) schedule_->RunDue(now);
  }

  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                    std::function<void()> tick) override {
    return std::make_unique<ScheduledTimer>(schedule_,
                                            schedule_->Add(now_(), interval, std::move(tick)));
  }

 private:
  nanoseconds (*now_)();
  std::shared_ptr<Schedule> schedule_ = std::make_shared<Schedule>();  // timers may outlive this
};

/// Good to some milliseconds, and several times cheaper to ask than the exact clock.
nanoseconds SteadyNow() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::chrono::seconds(now.tv_sec) + nanoseconds(now.tv_nsec);
}

}  // namespace

std::unique_ptr<MessageLoop> MakeMessageLoop(nanoseconds (*now)()) {
  return std::make_unique<LinuxMessageLoop>(now);
}

std::unique_ptr<MessageLoop> SystemMessageLoop() { return MakeMessageLoop(SteadyNow); }

}  // namespace imptable
