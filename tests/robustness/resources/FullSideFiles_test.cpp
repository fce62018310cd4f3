#include <gmock/gmock.h>

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"
#include "tests/robustness/resources/SmallFolder.h"

namespace imptable {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr int kMostSteps = 1000;

bool SaysDiskFull(const Ending& ending) {
  return ending.err.find(": Disk full : ") != std::string::npos;
}

/// One line of error and the report both name the file that found no room; the status is that of a
/// failed run.
void ExpectClearAccount(const CountedTask& task, const Ending& ending) {
  EXPECT_EQ(ending.code, 1) << Shown(ending);
  EXPECT_THAT(ending.err,
              MatchesRegex("imptable: .*: Disk full : .*/run/CLIENTS\\.[A-Z.a-z]+: see .*\n"));
  EXPECT_THAT(
      task.Report(),
      HasSubstr("Error during processing - N° 61 ,Disk full : " + task.RunFolder() + "CLIENTS."));
  EXPECT_EQ(task.Status(), "3");
}

/// The run's folder has little room for the side files; the source is elsewhere. The flag tells
/// whether a trace is enough for a resume. When it isn't, the command says what to do.
class FullSideFiles : public testing::TestWithParam<std::tuple<SourceKind, bool>> {
 protected:
  FullSideFiles() {
    task_.folder().Write("source.csv", SourceText(std::get<SourceKind>(GetParam()), lines_));
  }

  void MountFresh(const std::string& room) {
    room_.reset();
    task_.StartOver();
    OutputOf(task_.Command(
        {"set", "S1", "T1", std::string("RecTrace=") + (std::get<bool>(GetParam()) ? "1" : "0")}));
    room_.emplace(task_.RunFolder(), room);
    std::filesystem::create_symlink("../source.csv", task_.RunFolder() + "CLIENTS.CSV");
  }

  const int lines_ = InLongForm() ? 3000 : 700;
  const CountedTask task_{DatabaseKind::kSqlite};
  std::optional<SmallFolder> room_;
};

TEST_P(FullSideFiles, AreNamedAtEverySizeAndAResumeLosesNothing) {
  int pages = 1;
  for (; pages < kMostSteps; ++pages) {
    SCOPED_TRACE(Pages(pages));
    MountFresh(Pages(pages));
    const Ending ending = task_.Run();
    if (!SaysDiskFull(ending)) {
      EXPECT_THAT(ending.code, AnyOf(0, 1)) << Shown(ending);
      break;
    }
    ExpectClearAccount(task_, ending);
    task_.CheckAccount(ending, lines_);
    room_->MakeMuchRoom();
    task_.CompleteAndCheck(lines_, 1);
    if (HasFailure()) break;
  }
  Figure("full side files: " + std::to_string(pages - 1) + " sizes");
  EXPECT_GT(pages, 2);
  EXPECT_LT(pages, kMostSteps);
}

TEST_P(FullSideFiles, GrowByAPageBetweenResumesUntilAllIsDone) {
  MountFresh(Pages(1));
  Ending ending = task_.Run();
  int pages = 1;
  for (; SaysDiskFull(ending) && pages < kMostSteps && !HasFailure(); ++pages) {
    SCOPED_TRACE(Pages(pages));
    ExpectClearAccount(task_, ending);
    room_->Resize(Pages(pages + 1));
    ending = task_.GoOn();
    task_.CheckAccount(ending, lines_);
  }
  EXPECT_THAT(ending.code, AnyOf(0, 1)) << Shown(ending);
  EXPECT_LT(pages, kMostSteps);
  // A success must leave no trace: the next source could be taken for its resume.
  EXPECT_EQ(task_.Exists("CLIENTS.TRC"), ending.code == 1);
  Figure("a disk that grows by a page: " + std::to_string(pages) + " runs");
  room_->MakeMuchRoom();
  if (ending.code == 0) {
    task_.CheckDone(lines_, pages - 1);
  } else {
    task_.CompleteAndCheck(lines_, pages - 1);
  }
}

TEST_P(FullSideFiles, AreNamedWhenNoFurtherFileFits) {
  for (int files = 2;; ++files) {  // the folder itself and the link to the source
    SCOPED_TRACE(files);
    ASSERT_LT(files, kMostSteps);
    const std::string room = "size=64m,nr_inodes=" + std::to_string(files);
    MountFresh(room);
    const Ending ending = task_.Run();
    if (!SaysDiskFull(ending)) {
      Figure("no room for a further file: " + std::to_string(files - 2) + " numbers of files");
      break;
    }
    ExpectClearAccount(task_, ending);
    room_->MakeMuchRoom();
    task_.CompleteAndCheck(lines_, 1);
    if (HasFailure()) break;
  }
}

std::string KindName(const testing::TestParamInfo<std::tuple<SourceKind, bool>>& each) {
  const std::string advised = std::get<bool>(each.param) ? "" : "AsAdvised";
  switch (std::get<SourceKind>(each.param)) {
    case SourceKind::kGood:
      return "Trace" + advised;
    case SourceKind::kRefused:
      return "Diagnostics" + advised;
    case SourceKind::kLongBad:
      return "RejectedLines" + advised;
  }
  return {};
}

INSTANTIATE_TEST_SUITE_P(MostlyOf, FullSideFiles,
                         testing::Combine(testing::Values(SourceKind::kGood, SourceKind::kRefused,
                                                          SourceKind::kLongBad),
                                          testing::Bool()),
                         KindName);

}  // namespace
}  // namespace imptable
