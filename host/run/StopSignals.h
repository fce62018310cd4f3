#ifndef HOST_RUN_STOP_SIGNALS_H_
#define HOST_RUN_STOP_SIGNALS_H_

#include <semaphore.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <functional>
#include <thread>

namespace imptable {

/// While it lives, the first SIGINT, SIGTERM or SIGHUP asks the run to stop, the second one cancels
/// what it waits for and the third one kills as usual; a reader that closes our output doesn't end
/// the run (SIGPIPE). One at a time.
class StopSignals {
 public:
  /// @param stop  set from the signal handler; borrowed.
  /// @param cancel  called by a thread of its own at the second signal, as long as this lives.
  StopSignals(std::atomic<bool>& stop, std::function<void()> cancel);
  ~StopSignals();

  /// Leaves the signals ignored when this object is gone: for a process that then ends with the
  /// run's code.
  void LastUntilTheEnd() { until_the_end_ = true; }

  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  static constexpr std::size_t kCount = 4;

  void WaitForTheSecond();

  std::array<struct sigaction, kCount> former_{};
  bool until_the_end_ = false;
  std::function<void()> cancel_;
  sem_t second_{};
  std::atomic<bool> over_{false};
  std::thread waiter_;
};

}  // namespace imptable

#endif  // HOST_RUN_STOP_SIGNALS_H_
