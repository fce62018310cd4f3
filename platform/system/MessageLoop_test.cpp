#include "platform/system/MessageLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <thread>

namespace imptable {
namespace {

using namespace std::chrono_literals;

/// The system's own message loop, in real time.
class MessageLoopOfTheSystem : public testing::Test {
 protected:
  using Time = std::chrono::steady_clock;

  /// Yields until then; fails after a minute.
  void YieldUntil(const std::function<bool()>& reached) {
    const auto start = Time::now();
    while (!reached()) {
      ASSERT_LT(Time::now() - start, 60s);
      loop_->Yield();
      std::this_thread::sleep_for(1ms);
    }
  }

  std::unique_ptr<Timer> Count(std::chrono::milliseconds interval, int& ticks) {
    return loop_->StartTimer(interval, [&ticks] { ++ticks; });
  }

  std::unique_ptr<MessageLoop> loop_ = SystemMessageLoop();
};

TEST_F(MessageLoopOfTheSystem, FollowsRealTime) {
  int ticks = 0;
  const auto start = Time::now();
  const auto timer = Count(60ms, ticks);
  YieldUntil([&] { return ticks > 0; });
  // The system's coarse clock may be some milliseconds behind when the timer starts.
  EXPECT_GE(Time::now() - start, 30ms);
  YieldUntil([&] { return ticks > 1; });
}

TEST_F(MessageLoopOfTheSystem, TicksWithinYieldOnly) {
  int ticks = 0;
  const auto timer = Count(500ms, ticks);
  std::this_thread::sleep_for(1200ms);
  EXPECT_EQ(ticks, 0);
  loop_->Yield();
  EXPECT_EQ(ticks, 1) << "those that were missed count as one";
}

TEST_F(MessageLoopOfTheSystem, StopsTheTicksOfATimerThatIsDestroyed) {
  int kept_ticks = 0;
  int ended_ticks = 0;
  auto ended = Count(20ms, ended_ticks);
  const auto kept = Count(20ms, kept_ticks);
  std::this_thread::sleep_for(100ms);
  ended.reset();
  YieldUntil([&] { return kept_ticks >= 2; });
  EXPECT_EQ(ended_ticks, 0);
}

TEST_F(MessageLoopOfTheSystem, LetsATickEndItsOwnTimer) {
  int ticks = 0;
  int other_ticks = 0;
  const auto other = Count(20ms, other_ticks);
  std::unique_ptr<Timer> timer;
  timer = loop_->StartTimer(20ms, [&, held = std::make_shared<int>()] {
    const std::weak_ptr<int> watched = held;
    timer.reset();
    EXPECT_FALSE(watched.expired()) << "what the tick holds is still there";
    ++ticks;
  });
  YieldUntil([&] { return other_ticks >= 4; });
  EXPECT_EQ(ticks, 1);
}

TEST_F(MessageLoopOfTheSystem, LetsATickStartAnotherTimer) {
  int ticks = 0;
  std::unique_ptr<Timer> second;
  const auto first = loop_->StartTimer(20ms, [&] {
    if (!second) second = Count(20ms, ticks);
  });
  YieldUntil([&] { return ticks >= 2; });
}

TEST_F(MessageLoopOfTheSystem, ServesOtherTimersWithinATickButNotThatOne) {
  int entered = 0;
  int other_ticks = 0;
  const auto other = Count(20ms, other_ticks);
  const auto timer = loop_->StartTimer(20ms, [&] {
    if (++entered > 1) return;
    const int before = other_ticks;
    YieldUntil([&] { return other_ticks >= before + 3; });
    EXPECT_EQ(entered, 1);
  });
  YieldUntil([&] { return entered >= 2; });
  EXPECT_GE(other_ticks, 3);
}

TEST_F(MessageLoopOfTheSystem, PassesTheExceptionOfATickOnAndTicksAgain) {
  int ticks = 0;
  const auto timer = loop_->StartTimer(20ms, [&] {
    if (++ticks == 1) throw std::runtime_error("tick");
  });
  EXPECT_THROW(YieldUntil([&] { return ticks >= 2; }), std::runtime_error);
  EXPECT_EQ(ticks, 1);
  YieldUntil([&] { return ticks >= 2; });
}

TEST_F(MessageLoopOfTheSystem, LetsATimerOutliveIt) {
  int ticks = 0;
  auto timer = Count(20ms, ticks);
  loop_.reset();
  timer.reset();
  EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace imptable
