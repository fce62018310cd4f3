#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Runs that are asked to stop in a Yield: the first is the run's start, then one after each line.
class RunInterruption : public testing::Test {
 protected:
  RunInterruption() { run_.Source({"1;a", "2;b", "3;c"}); }

  RunState& state() { return run_.component.module().run; }
  void StopAtYield(int nth) {
    run_.component.message_loop.AtYield(nth, [this] { state().stop_requested = true; });
  }
  void ExpectEnd() {
    EXPECT_EQ(run_.Report().back(), " --------------- PROCEDURE TERMINEE ---------------");
    EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
    EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(1));
    EXPECT_FALSE(run_.component.session().connection);
    EXPECT_TRUE(run_.component.registry.Text(ImportRun::kTaskPath, "ExecuteLe"));
  }

  ImportRun run_;
};

TEST_F(RunInterruption, FinishesTheLineAndClosesEverything) {
  StopAtYield(3);
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_TRUE(state().interrupted);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'"));
  EXPECT_THAT(run_.Trace(), ElementsAre(Done(1), Done(2)));
  EXPECT_THAT(run_.Report(), Contains(" ----->    2 enreg(s) lu(s)"));
  ExpectEnd();
}

TEST_F(RunInterruption, ImportsNothingWhenItComesBeforeTheImport) {
  run_.Set("Suppression", 1);
  StopAtYield(1);
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_TRUE(state().interrupted);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty());
  EXPECT_THAT(run_.source.LogLines("SQLPrepare"), IsEmpty());
  ExpectEnd();
}

TEST_F(RunInterruption, KeepsTheImportFromFollowingADeletion) {
  run_.Set("Suppression", 1);
  StopAtYield(2);  // the deletion's own
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_TRUE(state().interrupted);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), SizeIs(1));
  EXPECT_THAT(run_.Executed(), IsEmpty());
  ExpectEnd();
}

TEST_F(RunInterruption, ThatComesAfterTheLastLineChangesNothing) {
  StopAtYield(4);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_FALSE(state().interrupted);
  EXPECT_THAT(run_.Executed(), SizeIs(3));
  ExpectEnd();
}

TEST_F(RunInterruption, LeavesTheFilesOfAResumeThatHasNotBegun) {
  run_.folder.Write("CLIENTS.TRC", TextFile({Done(1), Rejected(2)}));
  run_.folder.Write("CLIENTS.LER", TextFile({"2;b"}));
  StopAtYield(1);
  EXPECT_EQ(run_.Go(2), 3);
  EXPECT_THAT(run_.Trace(), ElementsAre(Done(1), Rejected(2)));
  EXPECT_THAT(run_.Rejected(), ElementsAre("2;b"));
}

TEST_F(RunInterruption, IsForgottenByTheNextRunOnceTheRequestIsTakenBack) {
  StopAtYield(2);
  run_.Go();
  ASSERT_TRUE(state().interrupted);
  state().stop_requested = false;
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_FALSE(state().interrupted);
}

}  // namespace
}  // namespace imptable
