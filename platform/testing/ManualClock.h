#ifndef PLATFORM_TESTING_MANUALCLOCK_H_
#define PLATFORM_TESTING_MANUALCLOCK_H_

#include <string>

#include "platform/system/Clock.h"

namespace imptable {

/// A clock that stands at the time a test gave it.
class ManualClock : public Clock {
 public:
  ManualClock() = default;
  explicit ManualClock(const LocalTime& now) : now_(now) {}

  void Set(const LocalTime& now) { now_ = now; }

  LocalTime Now() const override { return now_; }

  /// Always dd/mm/yyyy hh:mm:ss.
  std::string ShortDateLongTime(const LocalTime& time) const override;

 private:
  LocalTime now_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_MANUALCLOCK_H_
