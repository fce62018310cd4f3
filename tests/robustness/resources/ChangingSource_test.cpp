#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int kLines = 22000;
constexpr int kTracedBefore = 300;

/// Lets a run trace some lines, stops it, has something done to its source, and lets it go on.
Ending RunAndMeanwhile(const CountedTask& task, const std::function<void()>& change) {
  const auto run = task.StartAndTrace(kTracedBefore);
  run->Signal(SIGSTOP);
  change();
  run->Signal(SIGCONT);
  return run->Wait();
}

class ShrinkingSource : public testing::TestWithParam<std::size_t> {};

TEST_P(ShrinkingSource, IsNamedNoTornLineIsImportedAndAResumeOfTheWholeLosesNothing) {
  const CountedTask task(DatabaseKind::kSqlite);
  const std::string whole = SourceText(SourceKind::kGood, kLines);
  task.Source(whole);
  const std::string path = task.RunFolder() + "CLIENTS.CSV";
  const Ending ending =
      RunAndMeanwhile(task, [&] { std::filesystem::resize_file(path, GetParam()); });
  EXPECT_EQ(ending.code, 1) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: task \"T1\": Unexpected end of file"));
  EXPECT_THAT(ending.err, HasSubstr(path));
  EXPECT_THAT(task.Report(), HasSubstr("Error during processing - N° 62 ,"));
  EXPECT_EQ(task.Status(), "3");
  const std::string rows = task.Rows("SELECT COUNT(*), MAX(code) FROM client");
  const std::string last_name = "SELECT name FROM client ORDER BY code DESC LIMIT 1";
  const std::string last = std::to_string(task.Traced());
  EXPECT_EQ(rows, last + '|' + last + '\n');
  EXPECT_EQ(task.Rows(last_name), "name " + last + '\n');
  Figure("a source cut to " + std::to_string(GetParam()) + " bytes of " +
         std::to_string(whole.size()) + ": " + last + " lines done");

  task.Source(whole);
  task.CompleteAndCheck(kLines, 0);
}

// Sizes in bytes. The first block that is read ends at 262144.
INSTANTIATE_TEST_SUITE_P(ToBytes, ShrinkingSource,
                         testing::ValuesIn(InLongForm()
                                               ? std::vector<std::size_t>{0, 100000, 262143, 262144,
                                                                          262145, 300001, 300002,
                                                                          300003, 340000}
                                               : std::vector<std::size_t>{100000, 300001}));

TEST(GrowingSource, IsReadToTheEndThatItThenHas) {
  const CountedTask task(DatabaseKind::kSqlite);
  task.Source(ClientLines(1, kLines));
  const Ending ending = RunAndMeanwhile(task, [&] { task.Source(ClientLines(1, kLines + 2000)); });
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  task.CheckDone(kLines + 2000, 0);
}

TEST(ReplacedSource, IsReadAsItWas) {
  const CountedTask task(DatabaseKind::kSqlite);
  task.Source(ClientLines(1, kLines));
  const Ending ending = RunAndMeanwhile(task, [&] {
    task.Write("new", "1;other\n");
    std::filesystem::rename(task.RunFolder() + "new", task.RunFolder() + "CLIENTS.CSV");
  });
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  task.CheckDone(kLines, 0);
}

TEST(RemovedSource, IsReadAsItWas) {
  const CountedTask task(DatabaseKind::kSqlite);
  task.Source(ClientLines(1, kLines));
  const Ending ending =
      RunAndMeanwhile(task, [&] { std::filesystem::remove(task.RunFolder() + "CLIENTS.CSV"); });
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  task.CheckDone(kLines, 0);
}

/// A source that is no data file can't be imported, and must not cause the deletion either.
class StrangeSource : public testing::Test {
 protected:
  StrangeSource() {
    task_.database().Execute("INSERT INTO client VALUES (7, 'kept');\n");
    task_.Write("CLIENTS.SUP", "[Table01]\n01=code,1,100\n");
  }

  void ExpectNamedAndNothingDone(const std::string& fault) {
    const Ending ending = Finish(task_.RunCommand());
    EXPECT_NE(ending.code, 0) << Shown(ending);
    EXPECT_THAT(ending.err, StartsWith("imptable: "));
    EXPECT_THAT(ending.err, HasSubstr(fault + " : " + path_));
    EXPECT_EQ(task_.Rows("SELECT code, name FROM client"), "7|kept\n");
  }

  // The task deletes what ".SUP" names before an import, also for an empty file.
  const CountedTask task_{DatabaseKind::kSqlite,
                          "\"Suppression\"=dword:00000002\n\"SiVide\"=dword:00000001\n"};
  const std::string path_ = task_.RunFolder() + "CLIENTS.CSV";
};

TEST_F(StrangeSource, AnEmptyFileIsNoneAndTheDeletionIsDone) {
  task_.Source("");
  EXPECT_EQ(task_.Run().code, 0);
  EXPECT_EQ(task_.Rows("SELECT code, name FROM client"), "");
}

TEST_F(StrangeSource, APipeWithoutAWriterIsNamed) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  ExpectNamedAndNothingDone("Bad file name");
}

TEST_F(StrangeSource, APipeWithAWriterIsNamedAndKeepsWhatIsInIt) {
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  const int pipe = open(path_.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(pipe, 0);
  ASSERT_EQ(write(pipe, "1;one\n", 6), 6);
  ExpectNamedAndNothingDone("Bad file name");
  char bytes[6];
  EXPECT_EQ(read(pipe, bytes, sizeof bytes), 6);
  close(pipe);
}

TEST_F(StrangeSource, ADeviceIsNamed) {
  for (const char* const device : {"/dev/zero", "/dev/null"}) {
    SCOPED_TRACE(device);
    std::filesystem::remove(path_);
    std::filesystem::create_symlink(device, path_);
    ExpectNamedAndNothingDone("Bad file name");
  }
}

TEST_F(StrangeSource, ASocketIsNamed) {
  const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  ASSERT_LT(path_.size(), sizeof address.sun_path);
  path_.copy(address.sun_path, path_.size());
  ASSERT_EQ(bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ExpectNamedAndNothingDone("Device I/O error");
  close(server);
}

TEST_F(StrangeSource, AFolderIsNamed) {
  std::filesystem::create_directory(path_);
  ExpectNamedAndNothingDone("Path or file access error");
}

TEST_F(StrangeSource, ALinkToItselfIsNamed) {
  std::filesystem::create_symlink("CLIENTS.CSV", path_);
  ExpectNamedAndNothingDone("Path or file access error");
}

}  // namespace
}  // namespace imptable
