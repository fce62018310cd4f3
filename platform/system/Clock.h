#ifndef PLATFORM_SYSTEM_CLOCK_H_
#define PLATFORM_SYSTEM_CLOCK_H_

#include <memory>
#include <string>

namespace imptable {

/// A local date and time. month and day from 1, hour 0 to 23.
struct LocalTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;

  virtual LocalTime Now() const = 0;

  /// The user's default short date, a blank and the user's default long time. In a C or POSIX
  /// locale: yyyy-mm-dd hh:mm:ss.
  virtual std::string ShortDateLongTime(const LocalTime& time) const = 0;
};

std::unique_ptr<Clock> SystemClock();

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_CLOCK_H_
