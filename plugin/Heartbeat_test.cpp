#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

class Heartbeat : public testing::Test {
 protected:
  Heartbeat() { run_.Source({"1;a", "2;b", "3;c"}); }

  ManualMessageLoop& loop() { return run_.component.message_loop; }

  ImportRun run_;
};

TEST_F(Heartbeat, StartsAfterTheFirstYieldWith500Milliseconds) {
  std::vector<milliseconds> at_first_yield = {milliseconds(-1)};
  std::vector<milliseconds> at_first_event;
  loop().AtYield(1, [&] { at_first_yield = loop().armed(); });
  run_.events.listener = [&](const std::string&) {
    if (run_.events.raised.size() == 1) at_first_event = loop().armed();
  };
  run_.Go();
  EXPECT_THAT(at_first_yield, IsEmpty());
  EXPECT_THAT(at_first_event, ElementsAre(milliseconds(500)));
}

TEST_F(Heartbeat, RaisesProgressAtEachTickAndYields) {
  run_.Go();
  const int yields_without = loop().yields();
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));

  run_.events.raised.clear();
  loop().AtYield(yields_without + 2, [this] { loop().Tick(); });
  loop().AtYield(yields_without + 4, [this] { loop().Tick(); });
  run_.Go();
  EXPECT_THAT(run_.events.raised,
              ElementsAre("Progress", "Progress", "Progress", "Progress", "Progress", "Complete"));
  EXPECT_EQ(loop().yields(), 2 * yields_without + 2) << "each tick yields once itself";
}

TEST_F(Heartbeat, IsHeardAtTheStartAfterEachLineAfterTheImportAndWhileDisconnecting) {
  std::vector<int> yields_at_events;
  run_.events.listener = [&](const std::string&) { yields_at_events.push_back(loop().yields()); };
  std::vector<std::size_t> lines_at_yields;
  for (int nth = 1; nth <= 5; ++nth) {
    loop().AtYield(nth, [&] { lines_at_yields.push_back(run_.component.host.lines.size()); });
  }
  run_.Go();
  // Four lines before the import, its banner, its two closing lines.
  EXPECT_THAT(lines_at_yields, ElementsAre(0, 5, 5, 5, 7));
  EXPECT_THAT(yields_at_events, ElementsAre(1, 1, 1, 8));
}

TEST_F(Heartbeat, EndsBeforeComplete) {
  std::vector<milliseconds> at_complete = {milliseconds(-1)};
  run_.events.listener = [&](const std::string& event) {
    if (event == "Complete") at_complete = loop().armed();
  };
  run_.Go();
  EXPECT_THAT(at_complete, IsEmpty());
}

TEST_F(Heartbeat, EndsBeforeTheConnectionIsClosed) {
  // The run itself yields five times; what comes then is closing the connection.
  std::vector<milliseconds> while_closing = {milliseconds(-1)};
  loop().AtYield(6, [&] { while_closing = loop().armed(); });
  run_.Go();
  ASSERT_GE(loop().yields(), 6);
  EXPECT_THAT(while_closing, IsEmpty());
}

TEST_F(Heartbeat, EndsWithARunThatFails) {
  run_.Set("Mode", "none");
  run_.Go();
  EXPECT_THAT(loop().armed(), IsEmpty());
  run_.Set("Mode", 0);
  run_.Driver("on SQLDriverConnect return -1 diag 08001 17 \"no\"");
  run_.Go();
  EXPECT_THAT(loop().armed(), IsEmpty());
}

TEST_F(Heartbeat, IsANewOneForEachRun) {
  run_.GoBy([this](ImpTable& task) {
    std::vector<milliseconds> armed;
    run_.events.listener = [&](const std::string& event) {
      if (event == "Progress") armed = loop().armed();
    };
    task.Run(1);
    EXPECT_THAT(armed, ElementsAre(milliseconds(500)));
    armed.clear();
    task.Run(1);
    EXPECT_THAT(armed, ElementsAre(milliseconds(500)));
    run_.events.listener = nullptr;
  });
}

TEST_F(Heartbeat, LetsTheHostStartASecondRunFromWithinATick) {
  // The only promise for the first run is that it ends.
  run_.GoBy([this](ImpTable& task) {
    bool nested = false;
    loop().AtYield(3, [this] { loop().Tick(); });
    run_.events.listener = [&](const std::string& event) {
      if (event != "Progress" || nested || loop().yields() < 3) return;
      nested = true;
      task.Run(1);
    };
    task.Run(1);
    EXPECT_TRUE(nested);
    run_.events.listener = nullptr;
  });
  EXPECT_EQ(std::count(run_.events.raised.begin(), run_.events.raised.end(), "Complete"), 2);
  EXPECT_THAT(loop().armed(), IsEmpty());
  EXPECT_FALSE(run_.component.session().connection);
}

}  // namespace
}  // namespace imptable
