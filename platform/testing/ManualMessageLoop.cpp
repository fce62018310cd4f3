#include "platform/testing/ManualMessageLoop.h"

#include <utility>

namespace imptable {

struct ManualMessageLoop::Entry {
  std::chrono::milliseconds interval;
  std::function<void()> tick;
  bool armed = true;
  bool due = false;
  bool running = false;
};

/// Marks a timer while its tick runs, also when the tick throws.
class ManualMessageLoop::Running {
 public:
  explicit Running(Entry& entry) : entry_(entry) { entry_.running = true; }
  ~Running() { entry_.running = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Entry& entry_;
};

class ManualMessageLoop::Handle : public Timer {
 public:
  explicit Handle(std::shared_ptr<Entry> entry) : entry_(std::move(entry)) {}
  ~Handle() override { entry_->armed = false; }

 private:
  std::shared_ptr<Entry> entry_;
};

void ManualMessageLoop::Yield() {
  ++yields_;
  const auto [first, last] = actions_.equal_range(yields_);
  for (auto action = first; action != last; ++action) action->second();

  std::erase_if(entries_, [](const auto& entry) { return !entry->armed; });
  const auto entries = entries_;  // a tick may start and stop timers
  for (const auto& entry : entries) {
    if (!entry->armed || !entry->due || entry->running) continue;
    entry->due = false;
    const Running running(*entry);
    entry->tick();
  }
}

std::unique_ptr<Timer> ManualMessageLoop::StartTimer(std::chrono::milliseconds interval,
                                                     std::function<void()> tick) {
  auto entry = std::make_shared<Entry>(Entry{.interval = interval, .tick = std::move(tick)});
  entries_.push_back(entry);
  return std::make_unique<Handle>(std::move(entry));
}

void ManualMessageLoop::Tick() {
  for (const auto& entry : entries_) entry->due = true;
}

void ManualMessageLoop::AtYield(int nth, std::function<void()> action) {
  actions_.emplace(nth, std::move(action));
}

std::vector<std::chrono::milliseconds> ManualMessageLoop::armed() const {
  std::vector<std::chrono::milliseconds> intervals;
  for (const auto& entry : entries_) {
    if (entry->armed) intervals.push_back(entry->interval);
  }
  return intervals;
}

}  // namespace imptable
