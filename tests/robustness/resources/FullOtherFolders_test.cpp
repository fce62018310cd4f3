#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"
#include "tests/robustness/resources/SmallFolder.h"

namespace imptable {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr int kLines = 200;
constexpr int kMostSteps = 1000;

int PagesOf(const std::string& path) {
  return static_cast<int>((std::filesystem::file_size(path) + kPageBytes - 1) / kPageBytes);
}

/// A folder beside the run's, to be mounted over.
std::string FolderBeside(const CountedTask& task, const std::string& name) {
  const std::string path = task.folder().path() + name;
  std::filesystem::create_directory(path);
  return path;
}

TEST(FullReportFolder, IsNamedAtEveryByteAndTheImportIsDone) {
  const CountedTask task(DatabaseKind::kSqlite);
  const std::string report = FolderBeside(task, "reports") + "/report.txt";
  const int step = InLongForm() ? 1 : 61;
  int free_bytes = 0;
  for (;; free_bytes += step) {
    SCOPED_TRACE(free_bytes);
    ASSERT_LT(free_bytes, kPageBytes);
    task.StartOver();
    task.Source(SourceText(SourceKind::kGood, kLines));
    const SmallFolder room(task.folder().path() + "reports", Pages(1));
    task.folder().Write("reports/report.txt",
                        std::string(static_cast<std::size_t>(kPageBytes - free_bytes), '-'));
    const Ending ending = task.Imptable({"--lang", "en", "run", "S1", "T1", "--report", report});
    if (ending.code == 0) break;
    EXPECT_EQ(ending.code, 4) << Shown(ending);
    EXPECT_THAT(ending.err, StartsWith("imptable: report " + report + ": lines are missing"));
    EXPECT_EQ(task.Status(), "2");
    EXPECT_EQ(task.Rows("SELECT COUNT(*), COUNT(DISTINCT code) FROM client"), "200|200\n");
    EXPECT_FALSE(task.Exists("CLIENTS.TRC"));
    if (HasFailure()) break;
  }
  Figure("a full report folder: room for 0 to " + std::to_string(free_bytes) + " bytes, by " +
         std::to_string(step));
  EXPECT_GT(free_bytes, 5 * step);
}

TEST(FullReportFolder, WithoutRoomForAFileStopsTheCommandBeforeAnythingIsDone) {
  const CountedTask task(DatabaseKind::kSqlite);
  const std::string report = FolderBeside(task, "reports") + "/report.txt";
  task.Source(SourceText(SourceKind::kGood, kLines));
  const SmallFolder room(task.folder().path() + "reports", "nr_inodes=1");
  const Ending ending = task.Imptable({"--lang", "en", "run", "S1", "T1", "--report", report});
  EXPECT_EQ(ending.code, 4) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: report " + report + ": can't be written"));
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(FullRegistryFolder, IsNamedAtEverySizeAndNoLineIsLost) {
  const CountedTask task(DatabaseKind::kSqlite);
  const std::string folder = FolderBeside(task, "registry");
  const std::string registry = folder + "/registry.db";
  int added = 0;
  for (;; ++added) {
    SCOPED_TRACE(added);
    ASSERT_LT(added, kMostSteps);
    task.StartOver();
    task.Source(SourceText(SourceKind::kGood, kLines));
    const SmallFolder room(folder, "size=64m");
    std::filesystem::copy_file(task.folder().path() + "registry.db", registry);
    room.Resize(Pages(PagesOf(registry) + added));
    Invocation run = task.RunCommand();
    run.environment["IMPTABLE_REGISTRY"] = registry;
    const Ending ending = Finish(run);
    if (ending.code == 0) break;
    EXPECT_EQ(ending.code, 4) << Shown(ending);
    EXPECT_THAT(ending.err, StartsWith("imptable: "));
    EXPECT_THAT(ending.err, HasSubstr("registry file \"" + registry + "\""));
    EXPECT_THAT(ending.err, HasSubstr("the disk is full"));
    EXPECT_THAT(task.Rows("SELECT COUNT(*) FROM client"), AnyOf("0\n", "200\n"));

    room.MakeMuchRoom();
    const bool done = task.Rows("SELECT COUNT(*) FROM client") == "200\n";
    Invocation again = task.RunCommand({"--resume"});
    again.environment["IMPTABLE_REGISTRY"] = registry;
    Ending resumed = Finish(again);
    if (!done && resumed.code == 3) resumed = Finish(run);  // nothing to resume
    EXPECT_EQ(resumed.code, 0) << Shown(resumed);
    EXPECT_EQ(task.Rows("SELECT COUNT(*), COUNT(DISTINCT code) FROM client"), "200|200\n");
    if (HasFailure()) break;
  }
  Figure("a full registry folder: " + std::to_string(added) + " sizes");
  EXPECT_GT(added, 0);
}

TEST(FullDatabaseFolder, RejectsLinesWithTheDriversMessageAndAResumeCompletes) {
  const CountedTask task(DatabaseKind::kSqlite, "\"Erreurs\"=\"3\"\n");
  const int lines = InLongForm() ? 3000 : 600;
  const std::string folder = FolderBeside(task, "disk");
  const std::string outside = task.folder().path() + "database.db";
  const std::string inside = folder + "/database.db";
  task.folder().Write("empty.db", task.folder().Read("database.db"));
  std::filesystem::remove(outside);
  std::filesystem::create_symlink("disk/database.db", outside);
  int added = 0;
  for (;; ++added) {
    SCOPED_TRACE(added);
    ASSERT_LT(added, kMostSteps);
    const SmallFolder room(folder, "size=64m");
    std::filesystem::copy_file(task.folder().path() + "empty.db", inside);
    task.StartOver();
    task.Source(SourceText(SourceKind::kGood, lines));
    room.Resize(Pages(PagesOf(inside) + added));
    const Ending ending = task.Run();
    if (ending.code == 0) break;
    EXPECT_EQ(ending.code, 1) << Shown(ending);
    EXPECT_THAT(ending.err, StartsWith("imptable: "));
    EXPECT_THAT(task.Read("CLIENTS.ERR"), HasSubstr("full"));
    EXPECT_EQ(task.Status(), "3");
    room.MakeMuchRoom();
    // The rejected lines need no mending: the database only had no room for them.
    const Ending resumed = task.Run({"--resume"});
    EXPECT_EQ(resumed.code, 0) << Shown(resumed);
    task.CheckDone(lines, 0);
    if (HasFailure()) break;
  }
  Figure("a full database folder: " + std::to_string(added) + " sizes");
  EXPECT_GT(added, 2);
}

}  // namespace
}  // namespace imptable
