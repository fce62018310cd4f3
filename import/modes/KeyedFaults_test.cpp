#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct FaultCase {
  std::int32_t mode;
  const char* name;
  bool fails_deletion;
};

/// What the modes that look for rows do alike when something goes wrong.
class KeyedFaults : public testing::TestWithParam<FaultCase> {
 protected:
  std::int32_t Mode() const { return GetParam().mode; }

  /// The counter of the lines that did something when every row count is 1.
  std::int64_t CountedLines(KeyedRun& run) const {
    return Mode() == kByDelete ? run.progress().lines[Outcome::kDeleted]
                               : run.progress().lines[Outcome::kModified];
  }
};

TEST_P(KeyedFaults, AreReportedOnceAndTheModeCloses) {
  KeyedRun run(Mode());
  run.Source({"1;a", "2;b", "3;c"});
  run.component.files.FailFrom(FileOperation::kWrite, 3,
                               std::make_error_code(std::errc::no_space_on_device));
  EXPECT_EQ(run.Go(), 3);
  const auto lines = run.ModeLines();
  ASSERT_GE(lines.size(), 3U);
  EXPECT_EQ(lines[1], Error(" -->   Erreur lors du traitement - N° 61 ,Disque plein : " +
                            run.folder.path() + "CLIENTS.TRC"));
  EXPECT_EQ(lines[2], Information(" ----->    2 enreg(s) lu(s)"));
  EXPECT_EQ(CountedLines(run), 1) << "a line counts once it is traced";
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1)));
  EXPECT_TRUE(run.component.module().run.error_reported);
  EXPECT_EQ(run.OpenStatements(), 0);
  EXPECT_EQ(run.component.session().listener, &run.component.state.report);
}

TEST_P(KeyedFaults, CountForAFailedDeletionInAllModesButTheCombinedOne) {
  KeyedRun run(Mode());
  run.Source({"1;a"});
  run.component.files.Fail(FileOperation::kOpenRead, 1, std::make_error_code(std::errc::io_error));
  EXPECT_EQ(run.Go(), 3);
  EXPECT_TRUE(run.component.module().run.error_reported);
  EXPECT_EQ(run.component.module().run.pre_deletion_failed, GetParam().fails_deletion);
}

TEST_P(KeyedFaults, ResetThePointer) {
  for (const char* key : {"CODE", "NONE"}) {
    KeyedRun run(Mode());
    run.component.module().pointer_mode = "P";
    run.Set("Cle/Index", key);
    run.Source({"1;a"});
    run.Go();
    EXPECT_EQ(run.component.pointer.shown, 1) << key;
    EXPECT_EQ(run.component.pointer.reset, 1) << key;
  }
}

TEST_P(KeyedFaults, LeaveThePointerAloneOutsideThePointerMode) {
  KeyedRun run(Mode());
  run.Source({"1;a"});
  run.Go();
  EXPECT_EQ(run.component.pointer.shown, 0);
  EXPECT_EQ(run.component.pointer.reset, 0);
}

/// The line counter is set back only when a reading loop starts.
TEST_P(KeyedFaults, BeforeTheFirstLineShowTheLineCountOfTheModeBefore) {
  KeyedRun run(Mode());
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 2);
  run.Set("Cle/Index", "");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.ModeLines()[2], Information(" ----->    3 enreg(s) lu(s)")) << "an abandon";
  run.Set("Cle/Index", "NONE");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.ModeLines()[2], Information(" ----->    3 enreg(s) lu(s)")) << "a fault";
  run.Set("Cle/Index", "CODE");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.ModeLines()[1], Information(" ----->    1 enreg(s) lu(s)"));
}

TEST_P(KeyedFaults, StopAfterTheLineThatCrossesTheErrorLimit) {
  struct Case {
    const char* limit;
    std::int64_t read;
  };
  for (const Case& each : {Case{"0", 1}, {"2", 3}, {"4", 5}}) {
    KeyedRun run(Mode());
    run.Set("Erreurs", each.limit);
    run.Driver("on SQLExecute return -1 diag S1000 7 \"no\"");
    run.Source({"1;a", "2;b", "3;c", "4;d", "5;e"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.progress().read, each.read) << each.limit;
    EXPECT_THAT(run.Rejected(), SizeIs(static_cast<std::size_t>(each.read)));
  }
}

TEST_P(KeyedFaults, RejectEveryLineAfterTheServerHasGone) {
  KeyedRun run(Mode());
  run.Driver("on SQLExecute from 2 return -1 diag 08S01 2006 \"server has gone away\"");
  run.Driver("on SQLDisconnect return -1 diag 08S01 2006 \"server has gone away\"");
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(CountedLines(run), 1);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b", "3;c"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2), Rejected(3, 2)));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(2, 2006, "server has gone away"),
                                        ErrorLine(3, 2006, "server has gone away")));
  EXPECT_EQ(run.OpenStatements(), 0);
}

TEST_P(KeyedFaults, WriteALineForEachDiagnosticButCountTheLineOnce) {
  KeyedRun run(Mode());
  run.Driver("on SQLExecute 1 return -1 diag 23000 19 \"first\" diag 01000 -20 \"second\"");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 19, "first"), ErrorLine(1, "(-20) second")));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
  EXPECT_EQ(CountedLines(run), 1);
}

TEST_P(KeyedFaults, TakeNoDataForAFailureWithoutADiagnostic) {
  KeyedRun run(Mode());
  run.Driver("on SQLExecute 1 return 100");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a"));
  EXPECT_THAT(run.Errors(), IsEmpty());
}

TEST_P(KeyedFaults, LeaveFilesFromWhichAResumeTakesTheFailedLinesAlone) {
  KeyedRun run(Mode());
  run.Set("Erreurs", "1");
  run.Driver("on SQLExecute 2 return -1 diag S1000 7 \"no\"");
  run.Source({"1;a", "2;b", "3;c", "4;d;x", "5;e"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 4);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b", "4;d;x"));
  run.folder.Write("CLIENTS.LER", "2;b\n4;mended\n");
  EXPECT_EQ(run.Go(2), 3) << "the second execution fails again";
  EXPECT_EQ(run.progress().lines[Outcome::kSkipped], 2);
  EXPECT_EQ(run.progress().read, 5);
  EXPECT_EQ(CountedLines(run), 2);
  EXPECT_THAT(run.Rejected(), ElementsAre("4;mended"));
  ASSERT_THAT(run.Executed(), SizeIs(3));
  EXPECT_THAT(run.Executed()[0], HasSubstr("1='2'"));
  EXPECT_THAT(run.Executed()[2], HasSubstr("1='5'"));
}

TEST_P(KeyedFaults, FinishTheLineAndCloseWhenAskedToStop) {
  KeyedRun run(Mode());
  run.Source({"1;a", "2;b", "3;c"});
  for (int yield = 1; yield < 50; ++yield) {
    run.component.message_loop.AtYield(yield, [&run] {
      if (run.progress().read == 2) run.component.module().run.stop_requested = true;
    });
  }
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), SizeIs(2));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Done(2)));
  EXPECT_EQ(CountedLines(run), 2);
}

TEST_P(KeyedFaults, YieldAfterEveryLine) {
  const auto yields = [this](const std::vector<std::string>& lines) {
    KeyedRun run(Mode());
    run.Source(lines);
    run.Go();
    return run.component.message_loop.yields();
  };
  EXPECT_EQ(yields({"1;a", "2;b;c", "3;d"}), yields({"1;a"}) + 2);
}

INSTANTIATE_TEST_SUITE_P(Mode, KeyedFaults,
                         testing::Values(FaultCase{kByUpdate, "Update", true},
                                         FaultCase{kByUpdateInsert, "UpdateInsert", false},
                                         FaultCase{kByDelete, "Delete", true}),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace imptable
