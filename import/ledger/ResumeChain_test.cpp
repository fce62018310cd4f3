#include "import/ledger/ResumeChain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "core/RuntimeFault.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;

/// A chain's file and the two of the last run, in a folder of their own.
class ChainOfResumes : public testing::Test {
 protected:
  void Write(const std::string& name, const std::vector<std::string>& lines) {
    folder_.Write(name, TextFile(lines));
  }
  void Advance() {
    chain().Advance(folder_.path() + "T.TRC", folder_.path() + "T.LER", {.scenario = "S"});
  }
  ResumeChain chain() { return ResumeChain(files_, folder_.path() + "T.REP"); }
  /// The lines of the chain's file after the identity.
  std::vector<std::string> Chain() {
    std::vector<std::string> lines;
    std::istringstream text(folder_.Read("T.REP"));
    for (std::string line; std::getline(text, line);) {
      if (line.ends_with('\r')) line.pop_back();
      if (line.starts_with("TAIL ")) {
        lines.clear();
      } else {
        lines.push_back(line);
      }
    }
    return lines;
  }

  TemporaryFolder folder_;
  std::unique_ptr<FileSystem> system_ = SystemFileSystem();
  FaultyFileSystem files_{*system_};
};

TEST_F(ChainOfResumes, BeginsWithTheLastRunsTraceAndRejectedLines) {
  Write("T.TRC", {Done(1), Rejected(2), Done(3, 1), Rejected(5, 2), Done(6, 2)});
  Write("T.LER", {"2;mended", "5;x"});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000021", "2;mended", "000000051", "5;x", "END 00000006"));
}

TEST_F(ChainOfResumes, KeepsWhatAnInterruptedResumeHadNotReached) {
  Write("T.REP", {"REP 1", "000000021", "2;b", "000000051", "5;e", "000000070", "END 00000009"});
  Write("T.TRC", {Done(2), Rejected(5)});
  Write("T.LER", {"5;mended"});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000051", "5;mended", "000000070", "END 00000009"));
}

TEST_F(ChainOfResumes, GoesOnBeyondItsRejectedLines) {
  Write("T.REP", {"REP 1", "000000021", "2;b", "END 00000003"});
  Write("T.TRC", {Done(2), Done(4), Rejected(5)});
  Write("T.LER", {"5;e"});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000051", "5;e", "END 00000005"));
}

TEST_F(ChainOfResumes, TakesALineThatLeftNoTraceForDoneOnceALaterOneIsTraced) {
  Write("T.REP", {"REP 1", "000000021", "", "000000051", "", "END 00000006"});
  Write("T.TRC", {Done(4)});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000051", "", "END 00000006"));
}

TEST_F(ChainOfResumes, FallsBackToItsOwnCopyAndThenToTheSource) {
  Write("T.REP", {"REP 1", "000000021", "2;b", "000000030", "END 00000003"});
  Write("T.TRC", {Rejected(2), Rejected(3, 2), Rejected(4, 3)});
  Write("T.LER", {});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000021", "2;b", "000000030", "000000040", "END 00000004"));
}

TEST_F(ChainOfResumes, IsTheSameWhenItIsAdvancedTwice) {
  Write("T.REP",
        {"REP 1", "000000021", "2;b", "000000051", "5;e", "000000081", "8;h", "END 00000009"});
  Write("T.TRC", {Rejected(2), Done(5, 1)});
  Write("T.LER", {"2;again"});
  Advance();
  const std::vector<std::string> once = Chain();
  EXPECT_THAT(once, ElementsAre("000000021", "2;again", "000000081", "8;h", "END 00000009"));
  Advance();
  EXPECT_EQ(Chain(), once);
  // What a run leaves when it dies after emptying one file or both.
  Write("T.LER", {});
  Advance();
  EXPECT_EQ(Chain(), once);
  Write("T.TRC", {});
  Advance();
  EXPECT_EQ(Chain(), once);
}

TEST_F(ChainOfResumes, NeedsNeitherFileOfTheLastRun) {
  Write("T.REP", {"REP 1", "000000021", "2;b", "END 00000003"});
  Advance();
  EXPECT_THAT(Chain(), ElementsAre("000000021", "2;b", "END 00000003"));
}

TEST_F(ChainOfResumes, BeginsWithTheIdentityOfItsFirstRun) {
  Write("T.REP", {"VOID"});
  chain().Begin({.scenario = "S", .task = "T"});
  EXPECT_EQ(chain().state(), ResumeChain::State::kFirst);
  EXPECT_EQ(chain().Reached(), 0);
  EXPECT_EQ(chain().Open()->identity(), (ChainIdentity{.scenario = "S", .task = "T"}));
  EXPECT_FALSE(folder_.Exists("T.REP.NEW"));
}

TEST_F(ChainOfResumes, TakesTheIdentityOfTheRunThatAdvancesIt) {
  chain().Begin({.scenario = "before"});
  Advance();
  EXPECT_EQ(chain().state(), ResumeChain::State::kOpen);
  EXPECT_EQ(chain().Open()->identity(), (ChainIdentity{.scenario = "S"}));
}

TEST_F(ChainOfResumes, IsMarkedWhenItsRunEndsAndNoLongerOnceItIsAdvanced) {
  const auto mark = [this] {
    const auto lines = chain().Open();
    while (lines->Next()) {
    }
    return lines->mark();
  };
  chain().Begin({.scenario = "S"});
  EXPECT_EQ(mark(), ChainMark::kNone);
  chain().Mark(ChainMark::kRead);
  EXPECT_EQ(mark(), ChainMark::kRead);
  Advance();
  EXPECT_EQ(mark(), ChainMark::kNone);
  chain().Mark(ChainMark::kStopped);
  EXPECT_EQ(mark(), ChainMark::kStopped);
}

TEST_F(ChainOfResumes, IsNotMarkedWhereThatCannotBeWritten) {
  chain().Begin({.scenario = "S"});
  files_.Fail(FileOperation::kWrite, 1, std::make_error_code(std::errc::no_space_on_device));
  chain().Mark(ChainMark::kRead);
  EXPECT_THAT(Chain(), ElementsAre("FIRST"));
}

TEST_F(ChainOfResumes, LeavesAFileAloneThatIsNone) {
  Write("T.REP", {"1;a", "2;b"});
  EXPECT_EQ(chain().state(), ResumeChain::State::kForeign);
  try {
    chain().RequireOwn();
    FAIL() << "it was taken for a chain's";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kInvalidFileFormat);
    EXPECT_EQ(fault.remedy(), FaultRemedy::kMoveForeignChain);
    EXPECT_EQ(fault.detail(), folder_.path() + "T.REP");
  }
  for (const char* const own : {"", "VOID\n", "REP 1\nEND 00000000\n", "REP 9\n"}) {
    folder_.Write("T.REP", own);
    EXPECT_NO_THROW(chain().RequireOwn()) << own;
  }
}

TEST_F(ChainOfResumes, KnowsHowFarItCameAndWhetherItIsOver) {
  EXPECT_EQ(chain().state(), ResumeChain::State::kNone);
  EXPECT_EQ(chain().Reached(), 0);
  Write("T.REP", {"REP 1", "000000020", "END 00000003"});
  EXPECT_EQ(chain().state(), ResumeChain::State::kOpen);
  EXPECT_EQ(chain().Reached(), 3);
  chain().Void();
  EXPECT_EQ(chain().state(), ResumeChain::State::kVoid);
  EXPECT_EQ(chain().Reached(), 0);
  chain().Remove();
  EXPECT_FALSE(folder_.Exists("T.REP"));
  chain().Remove();
  chain().Void();
  EXPECT_EQ(chain().state(), ResumeChain::State::kVoid) << "what can't be deleted needs it";
}

TEST_F(ChainOfResumes, IsOverEvenWhereTheDiskHasNoRoomForAnotherFile) {
  for (const FileOperation operation :
       {FileOperation::kOpenWrite, FileOperation::kWrite, FileOperation::kFlush}) {
    Write("T.REP", {"REP 1", "000000020", "END 00000003"});
    files_.Fail(operation, 1, std::make_error_code(std::errc::no_space_on_device));
    chain().Void();
    EXPECT_EQ(chain().state(), ResumeChain::State::kVoid);
    EXPECT_FALSE(folder_.Exists("T.REP.NEW"));
  }
  // Any other fault leaves the chain as it was.
  Write("T.REP", {"REP 1", "000000020", "END 00000003"});
  files_.Fail(FileOperation::kWrite, 1, std::make_error_code(std::errc::io_error));
  EXPECT_THROW(chain().Void(), RuntimeFault);
  EXPECT_EQ(chain().state(), ResumeChain::State::kOpen);
}

TEST_F(ChainOfResumes, TakesADamagedFileForOpenSoThatItIsNotLost) {
  Write("T.REP", {"REP 1"});
  EXPECT_EQ(chain().state(), ResumeChain::State::kOpen);
  EXPECT_THROW(chain().Reached(), RuntimeFault);
  EXPECT_THROW(Advance(), RuntimeFault);
  EXPECT_THAT(Chain(), ElementsAre("REP 1"));
  EXPECT_FALSE(folder_.Exists("T.REP.NEW"));
}

TEST_F(ChainOfResumes, IsNotTakenForNoneWhenItCannotBeOpened) {
  Write("T.REP", {"REP 1", "000000020", "END 00000003"});
  const std::error_code broken = std::make_error_code(std::errc::io_error);
  files_.Fail(FileOperation::kOpenRead, 1, broken);
  EXPECT_THROW(chain().state(), RuntimeFault);
  files_.Fail(FileOperation::kOpenRead, 1, broken);
  EXPECT_THROW(chain().Reached(), RuntimeFault);
}

TEST_F(ChainOfResumes, IsReplacedByAFileThatIsCompleteAndOnTheDisk) {
  Write("T.TRC", {Done(1)});
  Advance();
  std::vector<std::string> log;
  for (std::string line : files_.log()) {
    if (line.find("REP") == std::string::npos) continue;
    for (std::size_t at; (at = line.find(folder_.path())) != std::string::npos;) {
      line.erase(at, folder_.path().size());
    }
    log.push_back(line.starts_with("write") ? "write T.REP.NEW" : line);
  }
  EXPECT_THAT(log,
              testing::ElementsAre("open write T.REP.NEW", "write T.REP.NEW", "flush T.REP.NEW",
                                   "close T.REP.NEW", "replace T.REP by T.REP.NEW"));
}

class FailingChain : public ChainOfResumes, public testing::WithParamInterface<FileOperation> {};

TEST_P(FailingChain, StaysAsItWas) {
  Write("T.REP", {"REP 1", "000000021", "2;b", "END 00000003"});
  Write("T.TRC", {Done(2)});
  const std::vector<std::string> before = Chain();
  files_.Fail(GetParam(), 1, std::make_error_code(std::errc::no_space_on_device));
  try {
    Advance();
    FAIL() << "the failure was passed over";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kDiskFull);
    EXPECT_THAT(fault.detail(), testing::HasSubstr("T.REP"));
  }
  EXPECT_EQ(Chain(), before);
  EXPECT_FALSE(folder_.Exists("T.REP.NEW"));
}

INSTANTIATE_TEST_SUITE_P(AtEachStep, FailingChain,
                         testing::Values(FileOperation::kOpenRead, FileOperation::kRead,
                                         FileOperation::kOpenWrite, FileOperation::kWrite,
                                         FileOperation::kFlush, FileOperation::kClose,
                                         FileOperation::kReplace));

}  // namespace
}  // namespace imptable
