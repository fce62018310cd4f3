#include "host/StopSignals.h"

namespace imptable {
namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGPIPE};

// A signal handler reaches nothing but globals.
std::atomic<std::atomic<bool>*> asked_to_stop{nullptr};
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<std::atomic<bool>*>::is_always_lock_free);

void AskToStop(int) {
  if (std::atomic<bool>* const stop = asked_to_stop.load()) stop->store(true);
}

}  // namespace

StopSignals::StopSignals(std::atomic<bool>& stop) {
  static_assert(kSignals.size() == kCount);
  asked_to_stop.store(&stop);
  for (std::size_t i = 0; i < kCount; ++i) {
    struct sigaction action {};
    sigemptyset(&action.sa_mask);
    if (kSignals[i] == SIGPIPE) {
      action.sa_handler = SIG_IGN;
    } else {
      action.sa_handler = AskToStop;
      // A driver's interrupted system call goes on: only the run itself is to stop.
      action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    }
    sigaction(kSignals[i], nullptr, &former_[i]);
    // Who started us in the background or under nohup wants the signal to be ignored.
    if (former_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

StopSignals::~StopSignals() {
  for (std::size_t i = 0; i < kCount; ++i) sigaction(kSignals[i], &former_[i], nullptr);
  asked_to_stop.store(nullptr);
}

}  // namespace imptable
