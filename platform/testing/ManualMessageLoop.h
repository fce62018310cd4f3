#ifndef PLATFORM_TESTING_MANUALMESSAGELOOP_H_
#define PLATFORM_TESTING_MANUALMESSAGELOOP_H_

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/system/MessageLoop.h"

namespace imptable {

/// A message loop in which time passes only when a test says so.
class ManualMessageLoop : public MessageLoop {
 public:
  void Yield() override;
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                    std::function<void()> tick) override;

  /// Makes every armed timer due; the next Yield delivers the ticks.
  void Tick();

  /// Runs `action` within the nth Yield, counted from 1 for the loop's first one, before the ticks.
  void AtYield(int nth, std::function<void()> action);

  int yields() const { return yields_; }

  /// The intervals of the armed timers, in the order in which they were started.
  std::vector<std::chrono::milliseconds> armed() const;

 private:
  struct Entry;
  class Handle;
  class Running;

  std::vector<std::shared_ptr<Entry>> entries_;
  std::multimap<int, std::function<void()>> actions_;
  int yields_ = 0;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_MANUALMESSAGELOOP_H_
