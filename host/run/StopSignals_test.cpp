#include "host/run/StopSignals.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <thread>

namespace imptable {
namespace {

/// Waits for what another thread does.
bool Becomes(const std::atomic<int>& number, int expected) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (number.load() != expected && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return number.load() == expected;
}

TEST(StopSignals, AskTheRunToStopAtTheFirstAndCancelAtTheSecond) {
  for (const int first : {SIGINT, SIGTERM, SIGHUP}) {
    for (const int second : {SIGINT, SIGTERM, SIGHUP}) {
      std::atomic<bool> stop{false};
      std::atomic<int> cancelled{0};
      const StopSignals signals(stop, [&] { ++cancelled; });
      EXPECT_FALSE(stop.load());
      raise(first);
      EXPECT_TRUE(stop.load());
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      EXPECT_EQ(cancelled.load(), 0);
      raise(second);
      EXPECT_TRUE(Becomes(cancelled, 1));
    }
  }
}

TEST(StopSignals, CancelNothingWhenTheRunEndsWithoutASecond) {
  std::atomic<bool> stop{false};
  std::atomic<int> cancelled{0};
  {
    const StopSignals signals(stop, [&] { ++cancelled; });
    raise(SIGTERM);
  }
  EXPECT_EQ(cancelled.load(), 0);
}

TEST(StopSignals, KillAtTheThirdAsUsual) {
  const auto three = [] {
    std::atomic<bool> stop{false};
    const StopSignals signals(stop, [] {});
    for (int n = 0; n < 3; ++n) raise(SIGTERM);
    _exit(1);
  };
  EXPECT_EXIT(three(), testing::KilledBySignal(SIGTERM), "");
}

TEST(StopSignals, AreIgnoredUntilTheProcessEndsWithTheRunsCode) {
  const auto stopped_late = [] {
    {
      std::atomic<bool> stop{false};
      StopSignals signals(stop, [] {});
      signals.LastUntilTheEnd();
    }
    for (const int each : {SIGINT, SIGTERM, SIGHUP}) raise(each);
    _exit(7);
  };
  EXPECT_EXIT(stopped_late(), testing::ExitedWithCode(7), "");
}

TEST(StopSignals, LeaveASignalIgnoredThatWhoeverStartedUsIgnores) {
  const auto former = std::signal(SIGHUP, SIG_IGN);
  {
    std::atomic<bool> stop{false};
    const StopSignals signals(stop, [] {});
    raise(SIGHUP);
    EXPECT_FALSE(stop.load());
  }
  EXPECT_EQ(std::signal(SIGHUP, former), SIG_IGN);
}

}  // namespace
}  // namespace imptable
