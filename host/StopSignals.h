#ifndef HOST_STOP_SIGNALS_H_
#define HOST_STOP_SIGNALS_H_

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>

namespace imptable {

/// While it lives, the first SIGINT or SIGTERM asks the run to stop and the second one kills as
/// usual; a reader that closes our output doesn't end the run (SIGPIPE). One at a time.
class StopSignals {
 public:
  /// @param stop  set from the signal handler; borrowed.
  explicit StopSignals(std::atomic<bool>& stop);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  static constexpr std::size_t kCount = 3;

  std::array<struct sigaction, kCount> former_{};
};

}  // namespace imptable

#endif  // HOST_STOP_SIGNALS_H_
