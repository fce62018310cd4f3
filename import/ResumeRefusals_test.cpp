#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int16_t kResume = 2;

/// Makes a run that rejects line 2, then mends that line.
void LeaveAChain(ImportRun& run) {
  run.Source({"1;a", "2;b;x", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  run.folder.Write("CLIENTS.LER", TextFile({"2;mended"}));
}

/// The names and contents of the files that are left, without the source.
std::vector<std::string> Left(const ImportRun& run) {
  std::vector<std::string> left;
  for (const std::string& name : run.FileNames()) {
    if (name != "CLIENTS.CSV") left.push_back(name + '\n' + run.folder.Read(name));
  }
  return left;
}

/// Expects that a resume ends before it touches anything, and that its fault names `what`.
void ExpectRefused(ImportRun& run, const std::string& what) {
  const std::vector<std::string> before = Left(run);
  EXPECT_EQ(run.Go(kResume), 1);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_EQ(Left(run), before);
  ASSERT_TRUE(run.component.module().run.fault);
  EXPECT_EQ(run.component.module().run.fault->number(), FaultNumber::kInvalidFileFormat);
  EXPECT_THAT(run.Report().back(), HasSubstr(what));
  EXPECT_FALSE(run.component.module().run.resume);
}

void ExpectResumed(ImportRun& run) {
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='mended'"));
}

TEST(Resume, IsRefusedWithAnotherSource) {
  for (const std::vector<std::string>& other :
       {std::vector<std::string>{"1;a", "2;b;y", "3;c"}, {"1;a", "2;b;x"}, {"9;z", "8;y", "7;x"}}) {
    ImportRun run;
    LeaveAChain(run);
    run.Source(other);
    ExpectRefused(run, "CLIENTS.CSV");
    run.Source({"1;a", "2;b;x", "3;c"});
    ExpectResumed(run);
  }
}

TEST(Resume, IsRefusedWithASourceThatDiffersInItsLast64KiBAlone) {
  ImportRun run;
  std::vector<std::string> lines(80'000, "1;" + std::string(20, 'a'));
  lines[1] = "2;b;x";
  run.Source(lines);
  EXPECT_EQ(run.Go(), 3);
  lines.back().back() = 'b';
  run.Source(lines);
  ExpectRefused(run, "CLIENTS.CSV");
}

TEST(Resume, TakesEqualContentsWithAnotherTimeForTheSameSource) {
  ImportRun run;
  LeaveAChain(run);
  const std::string path = run.folder.path() + "CLIENTS.CSV";
  std::filesystem::last_write_time(path,
                                   std::filesystem::last_write_time(path) - std::chrono::hours(30));
  ExpectResumed(run);
}

TEST(Resume, GoesOnWithASourceThatOnlyGrew) {
  ImportRun run;
  LeaveAChain(run);
  run.Source({"1;a", "2;b;x", "3;c", "4;d"});
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='mended'", "1='4' 2='d'"));
}

TEST(Resume, TakesAnotherSourceWhenItIsToldTo) {
  ImportRun run;
  LeaveAChain(run);
  run.Source({"1;a", "2;other", "3;c"});
  run.component.module().run.takes_changed_source = true;
  ExpectResumed(run);
}

TEST(Resume, IsRefusedToAnotherTaskOrTarget) {
  struct Change {
    const char* setting;
    const char* value;
  };
  for (const Change& change : {Change{"Table", "OTHER"}, Change{"Owner", "me"}}) {
    ImportRun run;
    LeaveAChain(run);
    run.Set(change.setting, change.value);
    ExpectRefused(run, change.setting);
    run.Set(change.setting, std::string(change.setting) == "Table" ? "CLIENT" : "");
    ExpectResumed(run);
  }
  ImportRun run;
  LeaveAChain(run);
  std::string chain = run.folder.Read("CLIENTS.REP");
  chain.replace(chain.find("TASK T1"), 7, "TASK T2");
  run.folder.Write("CLIENTS.REP", chain);
  ExpectRefused(run, "S1\\T2");
}

TEST(Resume, IsRefusedWithRejectedLinesAddedOrLeftOut) {
  for (const std::vector<std::string>& lines : {std::vector<std::string>{},
                                                {"2;mended", "2;and again"},
                                                {"2;mended", ""},
                                                {"x", "y", "z"}}) {
    ImportRun run;
    LeaveAChain(run);
    run.folder.Write("CLIENTS.LER", TextFile(lines));
    run.Set("RecTrace", 1);
    ExpectRefused(run, "CLIENTS.LER, " + std::to_string(lines.size()) + "; ");
    run.folder.Write("CLIENTS.LER", "2;mended");
    ExpectResumed(run);
  }
}

/// As the command does: it has opened the task and found that it can be resumed.
void FindThatItResumes(ImportRun& run) {
  ModuleCommun& module = run.component.module();
  module.opened_task = static_cast<const OpenedTask&>(module.run);
  module.opened_task->resumes = true;
}

TEST(Resume, IsRefusedWithWhatHasChangedSinceTheCommandLooked) {
  ImportRun run;
  LeaveAChain(run);
  FindThatItResumes(run);
  run.Source({"9;x", "8;y", "7;z", "6;u"});
  ExpectRefused(run, "CLIENTS.CSV");
  run.Source({"1;a", "2;b;x", "3;c"});
  FindThatItResumes(run);
  run.folder.Write("CLIENTS.LER", "2;mended\n2;and again\n");
  ExpectRefused(run, "CLIENTS.LER, 2; ");
  FindThatItResumes(run);
  std::filesystem::remove(run.folder.path() + "CLIENTS.LER");
  ExpectRefused(run, "CLIENTS.LER, 0; ");
}

TEST(Resume, IsRefusedWithALineAddedAfterARunThatStoppedAtItsErrorLimit) {
  ImportRun run;
  run.Source({"1;a;x", "2;b;x", "3;c"});
  run.Set("Erreurs", "1");
  EXPECT_EQ(run.Go(), 3);
  run.folder.Write("CLIENTS.LER", TextFile({"1;a", "1;a again", "2;b"}));
  ExpectRefused(run, "CLIENTS.LER, 3; ");
}

TEST(Resume, AllowsForTheLineThatAKilledRunHadInHand) {
  ImportRun run;
  LeaveAChain(run);
  // As it is before the run comes to its end.
  std::string chain = run.folder.Read("CLIENTS.REP");
  chain.resize(chain.find("READ"));
  run.folder.Write("CLIENTS.REP", chain);
  run.folder.Write("CLIENTS.TRC", TextFile({Done(1), Rejected(2)}));
  run.folder.Write("CLIENTS.LER", "2;mended\n3;");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='mended'", "1='3' 2='c'"));
}

TEST(Resume, GoesOnFromAChainOfAnOlderVersion) {
  ImportRun run;
  LeaveAChain(run);
  run.folder.Write("CLIENTS.REP", "REP 1\n000000021\n2;mended\nEND 00000003\n");
  run.folder.Write("CLIENTS.TRC", "");
  run.folder.Write("CLIENTS.LER", "");
  ExpectResumed(run);
}

TEST(Resume, IsAFaultThatKeepsTheChainWhenTheSourceEndsBeforeIt) {
  for (const char* const chain :
       {"REP 1\n000000021\n2;mended\nEND 00000004\n", "REP 1\n000000041\n4;d\nEND 00000005\n"}) {
    ImportRun run;
    run.Source({"1;a", "2;b", "3;c"});
    run.folder.Write("CLIENTS.REP", chain);
    EXPECT_EQ(run.Go(kResume), 3);
    ASSERT_TRUE(run.component.module().run.fault);
    EXPECT_EQ(run.component.module().run.fault->number(), FaultNumber::kInputPastEnd);
    EXPECT_THAT(run.component.module().run.fault->detail(), HasSubstr("CLIENTS.CSV"));
    EXPECT_THAT(run.folder.Read("CLIENTS.REP"), HasSubstr("END 0000000"));
  }
}

TEST(Resume, ThatComesToNoLineKeepsWhatTheRunBeforeLeft) {
  for (const char* const how : {"missing", "empty", "mode"}) {
    SCOPED_TRACE(how);
    ImportRun run;
    LeaveAChain(run);
    const auto chain = [&run] {
      return std::vector<std::string>{run.folder.Read("CLIENTS.LER"),
                                      run.folder.Read("CLIENTS.TRC"),
                                      run.folder.Read("CLIENTS.REP")};
    };
    const std::vector<std::string> before = chain();
    const std::string source = run.folder.Read("CLIENTS.CSV");
    if (std::string(how) == "missing") std::filesystem::remove(run.folder.path() + "CLIENTS.CSV");
    if (std::string(how) == "empty") run.folder.Write("CLIENTS.CSV", "");
    if (std::string(how) == "mode") run.Set("Mode", 2);
    EXPECT_EQ(run.Go(kResume), 2) << "as of any such run";
    EXPECT_EQ(chain(), before);
    run.folder.Write("CLIENTS.CSV", source);
    run.Set("Mode", 0);
    ExpectResumed(run);
  }
}

TEST(Runs, LeaveAFileAloneThatIsNoChain) {
  for (const std::int16_t request : {std::int16_t{1}, kResume}) {
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.folder.Write("CLIENTS.REP", "my own report\n");
    run.folder.Write("CLIENTS.ERR", "why\n");
    EXPECT_EQ(run.Go(request), 1);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_EQ(run.folder.Read("CLIENTS.REP"), "my own report\n");
    EXPECT_EQ(run.folder.Read("CLIENTS.ERR"), "why\n");
  }
}

TEST(Runs, AreResumedAsLongAsTheirStatusIsNotStored) {
  for (const bool stored : {true, false}) {
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.Set("RecTrace", 1);
    if (!stored) {
      run.events.listener = [&](const std::string&) {
        // The third milestone is before the import: the status of its end is the next.
        if (run.events.raised.size() == 3) run.component.registry.FailWrites(5);
      };
    }
    run.Go();
    EXPECT_THAT(run.Executed(), SizeIs(2));
    EXPECT_EQ(run.folder.Exists("CLIENTS.TRC"), !stored);
    EXPECT_EQ(run.folder.Exists("CLIENTS.REP"), !stored);
    if (stored) continue;
    run.events.listener = nullptr;
    run.component.registry.FailWrites(kRegistryOk);
    EXPECT_EQ(run.Go(kResume), 2);
    EXPECT_THAT(run.Executed(), IsEmpty()) << "they are done";
    EXPECT_FALSE(run.folder.Exists("CLIENTS.TRC"));
  }
}

TEST(Resume, KeepsAByteOrderMarkThatIsData) {
  ImportRun run;
  const std::string marked = "2;b;\xEF\xBB\xBF";
  run.Source({"1;a", "\xEF\xBB\xBF" + marked, "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("\xEF\xBB\xBF" + marked));
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("\xEF\xBB\xBF" + marked));
}

}  // namespace
}  // namespace imptable
