#include "platform/system/Clock_linux.h"

#include <langinfo.h>
#include <locale.h>
#include <time.h>

#include <array>
#include <string_view>
#include <tuple>
#include <utility>

#include "platform/text/TextEncoding_linux.h"

namespace imptable {
namespace {

/// Sole owner of a locale's LC_TIME category.
class TimeLocale {
 public:
  explicit TimeLocale(const char* name) : raw_(newlocale(LC_TIME_MASK, name, nullptr)) {
    if (raw_ == nullptr) raw_ = newlocale(LC_TIME_MASK, "C", nullptr);
  }
  ~TimeLocale() { freelocale(raw_); }
  TimeLocale(const TimeLocale&) = delete;
  TimeLocale& operator=(const TimeLocale&) = delete;

  locale_t raw() const { return raw_; }

  bool IsC() const {
    const std::string_view name = nl_langinfo_l(_NL_LOCALE_NAME(LC_TIME), raw_);
    return name == "C" || name == "POSIX" || name.starts_with("C.");
  }

  std::string CodeSet() const { return nl_langinfo_l(_NL_TIME_CODESET, raw_); }

 private:
  locale_t raw_;
};

tm BrokenDown(const LocalTime& time) {
  tm result{};
  result.tm_year = time.year - 1900;
  result.tm_mon = time.month - 1;
  result.tm_mday = time.day;
  result.tm_hour = time.hour;
  result.tm_min = time.minute;
  result.tm_sec = time.second;
  tm normalised = result;
  timegm(&normalised);  // works out the days of the week and of the year
  result.tm_wday = normalised.tm_wday;
  result.tm_yday = normalised.tm_yday;
  return result;
}

auto Parts(const LocalTime& time) {
  return std::tie(time.year, time.month, time.day, time.hour, time.minute, time.second);
}

class LinuxClock : public Clock {
 public:
  LinuxClock(const std::string& locale, std::unique_ptr<TextEncoding> encoding)
      : locale_(locale.c_str()),
        format_(locale_.IsC() ? "%Y-%m-%d %H:%M:%S" : "%x %X"),
        locale_encoding_(MakeTextEncoding(locale_.CodeSet())),
        encoding_(std::move(encoding)) {
    tzset();  // localtime_r doesn't have to do that itself
  }

  LocalTime Now() const override {
    const time_t seconds = time(nullptr);
    tm now{};
    localtime_r(&seconds, &now);
    return {.year = now.tm_year + 1900,
            .month = now.tm_mon + 1,
            .day = now.tm_mday,
            .hour = now.tm_hour,
            .minute = now.tm_min,
            .second = now.tm_sec};
  }

  std::string ShortDateLongTime(const LocalTime& time) const override {
    if (text_.empty() || Parts(time) != Parts(text_time_)) {
      text_ = Format(time);
      text_time_ = time;
    }
    return text_;
  }

 private:
  std::string Format(const LocalTime& time) const {
    std::array<char, 256> text;
    const tm parts = BrokenDown(time);
    const std::size_t length = strftime_l(text.data(), text.size(), format_, &parts, locale_.raw());
    return encoding_->FromUtf8(locale_encoding_->ToUtf8({text.data(), length}));
  }

  TimeLocale locale_;
  const char* format_;
  std::unique_ptr<TextEncoding> locale_encoding_;
  std::unique_ptr<TextEncoding> encoding_;
  // The last time and its text. Many lines are written within one second, all with that text.
  mutable LocalTime text_time_;
  mutable std::string text_;
};

}  // namespace

std::unique_ptr<Clock> MakeClock(const std::string& locale,
                                 std::unique_ptr<TextEncoding> encoding) {
  return std::make_unique<LinuxClock>(locale, std::move(encoding));
}

std::unique_ptr<Clock> SystemClock() { return MakeClock("", SystemTextEncoding()); }

}  // namespace imptable
