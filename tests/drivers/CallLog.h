#ifndef TESTS_DRIVERS_CALLLOG_H_
#define TESTS_DRIVERS_CALLLOG_H_

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "tests/drivers/CallNames.h"
#include "tests/drivers/DriverApi.h"

namespace imptable::scripted {

/// One line a call, appended and flushed: a test can read it at any moment, and a crash loses
/// nothing. A closed log costs the test of a pointer.
class CallLog {
 public:
  CallLog() = default;
  /// An empty path, or one that can't be written, gives a closed log.
  explicit CallLog(const std::string& path);

  bool IsOpen() const { return file_ != nullptr; }
  void Write(Call call, std::string_view arguments, SQLRETURN code);
  /// A call that never returns.
  void WriteCrash(Call call, std::string_view arguments);

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void WriteLine(Call call, std::string_view arguments, std::string_view end);

  std::unique_ptr<std::FILE, Close> file_;
};

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_CALLLOG_H_
