#include "platform/system/MessageLoop_linux.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace imptable {
namespace {

using namespace std::chrono_literals;

/// A message loop whose time passes only when a test says so.
class MessageLoopOfLinux : public testing::Test {
 protected:
  void SetUp() override {
    time_ = 1000s;
    times_asked_ = 0;
  }

  void Pass(std::chrono::milliseconds duration) { time_ += duration; }
  int times_asked() const { return times_asked_; }

  std::unique_ptr<Timer> Count(std::chrono::milliseconds interval, int& ticks) {
    return loop_->StartTimer(interval, [&ticks] { ++ticks; });
  }

  std::unique_ptr<MessageLoop> loop_ = MakeMessageLoop([] {
    ++times_asked_;
    return time_;
  });

 private:
  static inline std::chrono::nanoseconds time_{};
  static inline int times_asked_ = 0;
};

TEST_F(MessageLoopOfLinux, TicksWithinYieldOnceTheIntervalIsOver) {
  int ticks = 0;
  const auto timer = Count(100ms, ticks);
  Pass(99ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 0);
  Pass(1ms);
  EXPECT_EQ(ticks, 0);
  loop_->Yield();
  EXPECT_EQ(ticks, 1);
  loop_->Yield();
  EXPECT_EQ(ticks, 1);
  Pass(100ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 2);
}

TEST_F(MessageLoopOfLinux, CountsMissedTicksAsOne) {
  int ticks = 0;
  const auto timer = Count(100ms, ticks);
  Pass(1050ms);
  loop_->Yield();
  loop_->Yield();
  EXPECT_EQ(ticks, 1);
}

TEST_F(MessageLoopOfLinux, GivesEachTimerItsOwnInterval) {
  int short_ticks = 0;
  int long_ticks = 0;
  const auto long_timer = Count(250ms, long_ticks);
  const auto short_timer = Count(100ms, short_ticks);
  for (int i = 0; i < 50; ++i) {
    Pass(10ms);
    loop_->Yield();
  }
  EXPECT_EQ(short_ticks, 5);
  EXPECT_EQ(long_ticks, 2);
}

TEST_F(MessageLoopOfLinux, AsksTheTimeOnlyWhileATimerIsArmed) {
  loop_->Yield();
  EXPECT_EQ(times_asked(), 0);

  int ticks = 0;
  auto timer = Count(100ms, ticks);
  const int at_start = times_asked();
  loop_->Yield();
  EXPECT_EQ(times_asked(), at_start + 1);
  timer.reset();
  loop_->Yield();
  EXPECT_EQ(times_asked(), at_start + 1);
}

TEST_F(MessageLoopOfLinux, StopsTheTicksOfATimerThatIsDestroyed) {
  int kept_ticks = 0;
  int ended_ticks = 0;
  auto ended = Count(100ms, ended_ticks);
  const auto kept = Count(100ms, kept_ticks);
  Pass(100ms);
  ended.reset();
  loop_->Yield();
  EXPECT_EQ(ended_ticks, 0);
  EXPECT_EQ(kept_ticks, 1);
}

TEST_F(MessageLoopOfLinux, LetsATickEndItsOwnTimer) {
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  timer = loop_->StartTimer(100ms, [&] {
    timer.reset();
    ++ticks;  // what the tick captured is still there
  });
  for (int i = 0; i < 3; ++i) {
    Pass(100ms);
    loop_->Yield();
  }
  EXPECT_EQ(ticks, 1);
}

TEST_F(MessageLoopOfLinux, LetsATickEndAnotherTimerThatIsDue) {
  int ticks = 0;
  std::unique_ptr<Timer> second;
  const auto first = loop_->StartTimer(100ms, [&] { second.reset(); });
  second = Count(100ms, ticks);
  Pass(100ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 0);
}

TEST_F(MessageLoopOfLinux, LetsATickStartAnotherTimer) {
  int ticks = 0;
  std::unique_ptr<Timer> second;
  const auto first = loop_->StartTimer(100ms, [&] {
    if (!second) second = Count(50ms, ticks);
  });
  Pass(100ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 0);
  Pass(50ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 1);
}

TEST_F(MessageLoopOfLinux, DoesNotEnterATickThatIsRunning) {
  int entered = 0;
  int other_ticks = 0;
  const auto other = Count(100ms, other_ticks);
  const auto timer = loop_->StartTimer(100ms, [&] {
    ++entered;
    Pass(100ms);
    loop_->Yield();
  });
  Pass(100ms);
  loop_->Yield();
  EXPECT_EQ(entered, 1);
  EXPECT_EQ(other_ticks, 2) << "other timers go on";
  loop_->Yield();
  EXPECT_EQ(entered, 2) << "its interval passed meanwhile";
}

TEST_F(MessageLoopOfLinux, TicksAgainAfterATickThatThrew) {
  int ticks = 0;
  const auto timer = loop_->StartTimer(100ms, [&] {
    if (++ticks == 1) throw std::runtime_error("tick");
  });
  Pass(100ms);
  EXPECT_THROW(loop_->Yield(), std::runtime_error);
  loop_->Yield();
  EXPECT_EQ(ticks, 1);
  Pass(100ms);
  loop_->Yield();
  EXPECT_EQ(ticks, 2);
}

TEST_F(MessageLoopOfLinux, TicksAtEveryYieldWhenTheIntervalIsZero) {
  int ticks = 0;
  const auto timer = Count(0ms, ticks);
  loop_->Yield();
  loop_->Yield();
  EXPECT_EQ(ticks, 2);
}

TEST_F(MessageLoopOfLinux, LetsATimerOutliveIt) {
  int ticks = 0;
  auto timer = Count(100ms, ticks);
  loop_.reset();
  timer.reset();
  EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace imptable
