#include "platform/testing/ManualMessageLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace imptable {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ManualMessageLoop, TicksOnlyWithinTheYieldAfterATick) {
  ManualMessageLoop loop;
  int ticks = 0;
  const auto timer = loop.StartTimer(1s, [&] { ++ticks; });

  loop.Yield();
  EXPECT_EQ(ticks, 0);
  loop.Tick();
  loop.Tick();
  EXPECT_EQ(ticks, 0);
  loop.Yield();
  loop.Yield();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(loop.yields(), 3);
}

TEST(ManualMessageLoop, TellsTheIntervalsOfTheArmedTimers) {
  ManualMessageLoop loop;
  EXPECT_THAT(loop.armed(), IsEmpty());
  auto first = loop.StartTimer(250ms, [] {});
  const auto second = loop.StartTimer(1s, [] {});
  EXPECT_THAT(loop.armed(), ElementsAre(250ms, 1000ms));
  first.reset();
  EXPECT_THAT(loop.armed(), ElementsAre(1000ms));
}

TEST(ManualMessageLoop, LetsATickEndItsOwnTimer) {
  ManualMessageLoop loop;
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  timer = loop.StartTimer(1s, [&] {
    ++ticks;
    timer.reset();
    EXPECT_THAT(loop.armed(), IsEmpty());
  });
  loop.Tick();
  loop.Yield();
  loop.Tick();
  loop.Yield();
  EXPECT_EQ(ticks, 1);
}

TEST(ManualMessageLoop, DoesNotEnterATickThatIsRunning) {
  ManualMessageLoop loop;
  int ticks = 0;
  const auto timer = loop.StartTimer(1s, [&] {
    ++ticks;
    loop.Tick();
    loop.Yield();
  });
  loop.Tick();
  loop.Yield();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(loop.yields(), 2);
}

TEST(ManualMessageLoop, TicksAgainAfterATickThatThrew) {
  ManualMessageLoop loop;
  int ticks = 0;
  const auto timer = loop.StartTimer(1s, [&] {
    if (++ticks == 1) throw std::runtime_error("tick");
  });
  loop.Tick();
  EXPECT_THROW(loop.Yield(), std::runtime_error);
  loop.Tick();
  loop.Yield();
  EXPECT_EQ(ticks, 2);
}

TEST(ManualMessageLoop, RunsTheActionOfTheYieldAskedFor) {
  ManualMessageLoop loop;
  int ran_at = 0;
  loop.AtYield(3, [&] { ran_at = loop.yields(); });
  loop.Yield();
  loop.Yield();
  EXPECT_EQ(ran_at, 0);
  loop.Yield();
  loop.Yield();
  EXPECT_EQ(ran_at, 3);
}

TEST(ManualMessageLoop, LetsATimerOutliveIt) {
  auto loop = std::make_unique<ManualMessageLoop>();
  auto timer = loop->StartTimer(1s, [] {});
  loop.reset();
  timer.reset();
  EXPECT_EQ(timer, nullptr);
}

}  // namespace
}  // namespace imptable
