#include "host/run/StopSignals.h"

#include <cerrno>
#include <utility>

namespace imptable {
namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP, SIGPIPE};

// A signal handler can use only globals.
std::atomic<std::atomic<bool>*> asked_to_stop{nullptr};
std::atomic<sem_t*> asked_to_cancel{nullptr};
std::atomic<int> signals_seen{0};
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<int>::is_always_lock_free);
static_assert(std::atomic<std::atomic<bool>*>::is_always_lock_free);

void Take(int number) {
  const int before_errno = errno;
  switch (signals_seen.fetch_add(1)) {
    case 0:
      if (std::atomic<bool>* const stop = asked_to_stop.load()) stop->store(true);
      break;
    case 1:
      if (sem_t* const cancel = asked_to_cancel.load()) sem_post(cancel);
      break;
    default:
      // It takes effect when the handler returns.
      std::signal(number, SIG_DFL);
      raise(number);
  }
  errno = before_errno;
}

}  // namespace

StopSignals::StopSignals(std::atomic<bool>& stop, std::function<void()> cancel)
    : cancel_(std::move(cancel)) {
  static_assert(kSignals.size() == kCount);
  sem_init(&second_, 0, 0);
  waiter_ = std::thread([this] { WaitForTheSecond(); });
  signals_seen.store(0);
  asked_to_stop.store(&stop);
  asked_to_cancel.store(&second_);
  for (std::size_t i = 0; i < kCount; ++i) {
    struct sigaction action {};
    sigemptyset(&action.sa_mask);
    if (kSignals[i] == SIGPIPE) {
      action.sa_handler = SIG_IGN;
    } else {
      action.sa_handler = Take;
      // A driver's interrupted system call goes on: only the run itself is to stop.
      action.sa_flags = SA_RESTART;
    }
    sigaction(kSignals[i], nullptr, &former_[i]);
    // A signal that was ignored at the start (in the background, under nohup) stays ignored.
    if (former_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

StopSignals::~StopSignals() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (until_the_end_) former_[i].sa_handler = SIG_IGN;
    sigaction(kSignals[i], &former_[i], nullptr);
  }
  asked_to_stop.store(nullptr);
  asked_to_cancel.store(nullptr);
  over_.store(true);
  sem_post(&second_);
  waiter_.join();
  sem_destroy(&second_);
}

void StopSignals::WaitForTheSecond() {
  while (sem_wait(&second_) != 0) continue;  // interrupted
  if (!over_.load()) cancel_();
}

}  // namespace imptable
