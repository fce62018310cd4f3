#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::int16_t kResume = 2;

TEST(ResumedRuns, InsertsNoLineTwiceWhenAResumeIsItselfResumed) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c", "4;d;x", "5;e"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='3' 2='c'", "1='5' 2='e'"));
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  run.folder.Write("CLIENTS.LER", "2;b\n4;still;bad\n");
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='b'"));
  EXPECT_THAT(run.Rejected(), ElementsAre("4;still;bad"));
  run.folder.Write("CLIENTS.LER", "4;d\n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='4' 2='d'"));
}

TEST(ResumedRuns, TraceOnlyTheLinesThatTheyProcess) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c"});
  run.Go();
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(2)));
}

TEST(ResumedRuns, TakeUpALineThatAnInterruptedResumeHadNotReached) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c", "4;d;x", "5;e"});
  EXPECT_EQ(run.Go(), 3);
  run.folder.Write("CLIENTS.LER", "2;b;x\n4;d\n");
  run.Set("Erreurs", "0");
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b;x"));
  run.folder.Write("CLIENTS.LER", "2;b\n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='b'", "1='4' 2='d'"))
      << "as mended before the resume that stopped";
  EXPECT_THAT(run.FileNames(),
              ElementsAre("CLIENTS.CSV", "CLIENTS.ERR", "CLIENTS.LEB", "CLIENTS.TRB"));
}

/// Stops the task's first run after its first line.
void Interrupt(ImportRun& run) {
  run.Source({"1;a", "2;b", "3;c"});
  RunState& state = run.component.module().run;
  run.component.message_loop.AtYield(2, [&] { state.stop_requested = true; });
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1)));
  EXPECT_THAT(run.Rejected(), IsEmpty());
  state.stop_requested = false;
}

TEST(ResumedRuns, NeedARejectedLineUnlessTheTaskSaysOtherwise) {
  ImportRun usual;
  Interrupt(usual);
  EXPECT_EQ(usual.Go(kResume), 2);
  EXPECT_THAT(usual.Executed(), testing::SizeIs(3)) << "afresh";

  ImportRun run;
  run.Set("RecTrace", 1);
  Interrupt(run);
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='b'", "1='3' 2='c'"));
}

TEST(ResumedRuns, AreNeverMadeWithoutTheResumeOption) {
  ImportRun run;
  run.Set("RecTrace", 1);
  Interrupt(run);
  run.Set("RecErreurs", 0);
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), testing::SizeIs(3)) << "afresh";
}

TEST(ResumedRuns, GoOnFromAnOpenChainWhateverTheTaskSaysOfTraces) {
  for (const std::int32_t option : {0, 1}) {
    ImportRun run;
    run.Source({"1;a", "2;b", "3;c"});
    run.Set("RecTrace", option);
    run.folder.Write("CLIENTS.REP", "REP 1\n000000010\nEND 00000002\n");
    EXPECT_EQ(run.Go(kResume), 2);
    EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='3' 2='c'")) << option;
    EXPECT_FALSE(run.folder.Exists("CLIENTS.REP"));
  }
}

TEST(ResumedRuns, ResumeNothingOnceTheChainIsOver) {
  for (const std::int32_t option : {0, 1}) {
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.Set("RecTrace", option);
    run.folder.Write("CLIENTS.REP", "VOID\n");
    run.folder.Write("CLIENTS.TRC", "00000001100000001\n");
    run.folder.Write("CLIENTS.LER", "1;x;x\n");
    EXPECT_EQ(run.Go(kResume), 2);
    EXPECT_THAT(run.Executed(), testing::SizeIs(2)) << "afresh";
    EXPECT_FALSE(run.folder.Exists("CLIENTS.REP"));
  }
}

/// The operations on files, from the first that names the chain's file on.
std::vector<std::string> EndOfChain(const ImportRun& run) {
  std::vector<std::string> log;
  for (std::string line : run.component.files.log()) {
    for (std::size_t at; (at = line.find(run.folder.path())) != std::string::npos;) {
      line.erase(at, run.folder.path().size());
    }
    if (log.empty() && !line.starts_with("replace CLIENTS.REP")) continue;
    log.push_back(line);
  }
  return log;
}

TEST(FreshRuns, EndAnOlderChainInOneStepBeforeTheyDeleteWhatItLeft) {
  ImportRun run;
  run.Set("Mode", 2);
  run.Source({"1;a"});
  run.folder.Write("CLIENTS.REP", "REP 1\nEND 00000001\n");
  run.folder.Write("CLIENTS.TRC", "00000001100000001\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(EndOfChain(run),
              ElementsAre("replace CLIENTS.REP by CLIENTS.REP.NEW", "remove CLIENTS.TRC",
                          "remove CLIENTS.LER", "remove CLIENTS.REP.NEW", "remove CLIENTS.REP",
                          "remove CLIENTS.TRC", "remove CLIENTS.LER", "remove CLIENTS.REP.NEW",
                          "remove CLIENTS.REP"));
}

TEST(FreshRuns, DoNothingWhileAnOlderChainCannotBeEnded) {
  for (const FileOperation operation : {FileOperation::kOpenWrite, FileOperation::kReplace}) {
    ImportRun run;
    run.Source({"1;a"});
    run.folder.Write("CLIENTS.REP", "REP 1\nEND 00000001\n");
    run.folder.Write("CLIENTS.TRC", "00000001100000001\n");
    run.component.files.Fail(operation, 1, std::make_error_code(std::errc::permission_denied));
    EXPECT_EQ(run.Go(), 1);
    EXPECT_THAT(run.Executed(), IsEmpty());
    ASSERT_TRUE(run.component.module().run.fault);
    EXPECT_EQ(run.component.module().run.fault->number(), FaultNumber::kPermissionDenied);
    EXPECT_THAT(run.component.module().run.fault->detail(), HasSubstr("CLIENTS.REP"));
    EXPECT_EQ(run.folder.Read("CLIENTS.TRC"), "00000001100000001\n");
  }
}

TEST(ResumedRuns, AreDoneEvenIfTheirChainCannotBeEnded) {
  ImportRun run;
  run.Source({"1;a", "2;b;x"});
  run.Go();
  run.folder.Write("CLIENTS.LER", "2;b\n");
  run.component.files.Fail(FileOperation::kReplace, 2,
                           std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='b'"));
}

class ResumeWithoutALine : public testing::TestWithParam<const char*> {};

TEST_P(ResumeWithoutALine, KeepsWhatTheEarlierRunLeft) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  run.folder.Write("CLIENTS.LER", TextFile({"2;mended"}));
  run.Driver(GetParam());
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  run.Script(
      "column CODE 4 INTEGER 10 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\n");
  EXPECT_THAT(run.Rejected(), ElementsAre("2;mended"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2), Done(3, 1)));
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='mended'"));
}

INSTANTIATE_TEST_SUITE_P(AtEachStep, ResumeWithoutALine,
                         testing::Values("on SQLColumns 1 return -1 diag 08S01 1 \"gone\"",
                                         "on SQLSpecialColumns 1 return -1 diag 08S01 1 \"gone\"",
                                         "on SQLPrepare 1 return -1 diag 08S01 1 \"gone\"",
                                         "on SQLBindParameter 2 return -1 diag 08S01 1 \"gone\""));

TEST(ResumedRuns, KeepsWhatTheEarlierRunLeftWhenASettingIsDamaged) {
  ImportRun run;
  run.Source({"1;a", "2;b;x"});
  run.Go();
  run.Set("Erreurs", "40000");
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b;x"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2)));
}

TEST(ResumedRuns, KeepsWhatTheEarlierRunLeftWhenTheFirstLineCannotBeRead) {
  const auto rejected_one = [](ImportRun& run) {
    run.Source({"1;a", "2;b;x"});
    run.Go();
  };
  const auto reads_up_to_source = [](ImportRun& run, std::size_t from) {
    const std::vector<std::string>& log = run.component.files.log();
    int count = 0;
    bool opened = false;  // reads before only tell whether the source is the same
    for (std::size_t i = from; i < log.size(); ++i) {
      opened = opened || (log[i].starts_with("open write ") && log[i].ends_with("CLIENTS.TRC"));
      if (!log[i].starts_with("read ")) continue;
      ++count;
      if (opened && log[i].find("CLIENTS.CSV") != std::string::npos) return count;
    }
    return count;
  };
  ImportRun untouched;
  rejected_one(untouched);
  const std::size_t before = untouched.component.files.log().size();
  untouched.Go(kResume);
  const int first_read_of_source = reads_up_to_source(untouched, before);

  ImportRun run;
  rejected_one(run);
  run.component.files.Fail(FileOperation::kRead, first_read_of_source,
                           std::make_error_code(std::errc::io_error));
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_EQ(run.progress().read, 0);
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b;x"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2)));
}

TEST(ResumedRuns, RefusesATraceWhoseNumbersDoNotRise) {
  for (const char* const trace :
       {"00000002000000000\n00000001100000001\n", "00000001000000000\n00000001100000001\n",
        "00000000100000001\n"}) {
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.folder.Write("CLIENTS.TRC", trace);
    run.folder.Write("CLIENTS.LER", "1;x\n");
    EXPECT_EQ(run.Go(kResume), 1);
    EXPECT_THAT(run.Executed(), IsEmpty()) << trace;
    EXPECT_THAT(run.Report(), Contains(HasSubstr("N° 13 ,Incompatibilité de type : ")));
    EXPECT_EQ(run.folder.Read("CLIENTS.TRC"), trace);
  }
}

TEST(InsertMode, SaysWhichTableHasNoColumns) {
  ImportRun run;
  run.Script("");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Report(),
              Contains(" -->   Erreur lors du traitement - N° 5 ,Appel de procédure ou argument "
                       "incorrect : \"Table\" = \"CLIENT\""));
  EXPECT_THAT(run.Errors(), IsEmpty());
}

}  // namespace
}  // namespace imptable
