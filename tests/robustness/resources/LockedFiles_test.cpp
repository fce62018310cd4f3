#include <gmock/gmock.h>
#include <sqlite3.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using testing::HasSubstr;
using testing::StartsWith;

/// Keeps others from writing to an SQLite file, as another process does in a transaction.
class WriteLock {
 public:
  explicit WriteLock(const std::string& path) : database_(Open(path)) {
    if (!Take()) throw std::runtime_error(path + ": " + sqlite3_errmsg(database_.get()));
  }

  /// Takes the lock between two lines of a run. The run has its own lock nearly all the time, so it
  /// is halted again and again until it has none.
  WriteLock(const std::string& path, ChildProcess& run) : database_(Open(path)) {
    for (bool taken = false; !taken;) {
      if (!run.Running()) throw std::runtime_error("the run ended before " + path + " was locked");
      run.Signal(SIGSTOP);
      taken = Take();
      run.Signal(SIGCONT);
      if (!taken) std::this_thread::sleep_for(milliseconds(1));
    }
  }

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  using Database = std::unique_ptr<sqlite3, Close>;

  static Database Open(const std::string& path) {
    sqlite3* opened = nullptr;
    sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    return Database(opened);
  }

  bool Take() {
    return sqlite3_exec(database_.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
  }

  Database database_;
};

/// On SQLite, whose driver waits for a lock as long as the data source says.
class LockedDatabase : public testing::Test {
 protected:
  void UseTimeout(int timeout) {
    std::string sources = task_.folder().Read("odbc.ini");
    const std::size_t at = sources.find("Timeout=");
    ASSERT_NE(at, std::string::npos);
    sources.replace(at, sources.find('\n', at) - at, "Timeout=" + std::to_string(timeout));
    task_.folder().Write("odbc.ini", sources);
  }

  const CountedTask task_{DatabaseKind::kSqlite, "\"Erreurs\"=\"3\"\n"};
  const std::string path_ = task_.folder().path() + "database.db";
};

TEST_F(LockedDatabase, IsWaitedForAsLongAsTheDriverDoes) {
  constexpr milliseconds kHeld{1500};
  UseTimeout(20000);
  task_.Source(ClientLines(1, 300));
  auto lock = std::make_unique<WriteLock>(path_);
  const auto start = steady_clock::now();
  ChildProcess run(task_.RunCommand());
  std::this_thread::sleep_for(kHeld);
  EXPECT_TRUE(run.Running());
  lock.reset();
  const Ending ending = run.Wait();
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  EXPECT_GE(steady_clock::now() - start, kHeld);
  task_.CheckDone(300, 0);
}

TEST_F(LockedDatabase, RejectsLinesWithTheDriversMessageAndAResumeLosesNothing) {
  UseTimeout(50);
  task_.Source(ClientLines(1, 300));
  auto lock = std::make_unique<WriteLock>(path_);
  const Ending ending = task_.Run();
  lock.reset();
  EXPECT_EQ(ending.code, 1) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: task \"T1\": 4 line(s) rejected, see "));
  EXPECT_THAT(task_.Read("CLIENTS.ERR"), HasSubstr("database is locked"));
  EXPECT_EQ(task_.Read("CLIENTS.LER"), ClientLines(1, 4));
  EXPECT_EQ(task_.Rows("SELECT COUNT(*) FROM client"), "0\n");
  EXPECT_EQ(task_.Status(), "3");
  const Ending resumed = task_.Run({"--resume"});
  EXPECT_EQ(resumed.code, 0) << Shown(resumed);
  task_.CheckDone(300, 0);
}

TEST_F(LockedDatabase, InMidRunRejectsLinesAndAResumeLosesNothing) {
  constexpr int kLines = 8000;
  UseTimeout(50);
  task_.Source(ClientLines(1, kLines));
  for (const int lines : {1, 1000}) {
    SCOPED_TRACE(lines);
    task_.StartOver();
    task_.Source(ClientLines(1, kLines));
    const auto run = task_.StartAndTrace(lines);
    auto lock = std::make_unique<WriteLock>(path_, *run);
    const Ending ending = run->Wait();
    lock.reset();
    EXPECT_EQ(ending.code, 1) << Shown(ending);
    EXPECT_THAT(task_.Read("CLIENTS.ERR"), HasSubstr("database is locked"));
    const Ending resumed = task_.Run({"--resume"});
    EXPECT_EQ(resumed.code, 0) << Shown(resumed);
    task_.CheckDone(kLines, 0);
  }
}

TEST(LockedRegistry, IsWaitedFor) {
  constexpr milliseconds kHeld{1500};
  const CountedTask task(DatabaseKind::kSqlite);
  task.Source(ClientLines(1, 300));
  auto lock = std::make_unique<WriteLock>(task.folder().path() + "registry.db");
  ChildProcess run(task.RunCommand());
  std::this_thread::sleep_for(kHeld);
  EXPECT_TRUE(run.Running());
  lock.reset();
  const Ending ending = run.Wait();
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  task.CheckDone(300, 0);
}

/// Each of the run's writes waits ten seconds.
TEST(LockedRegistry, IsNamedAfterALongWaitAndTheImportIsDone) {
  if (!InLongForm()) {
    Figure("a registry that is locked for ever: in the long form alone");
    GTEST_SKIP() << "it takes a minute";
  }
  const CountedTask task(DatabaseKind::kSqlite);
  task.Source(ClientLines(1, 300));
  const WriteLock lock(task.folder().path() + "registry.db");
  const Ending ending = ChildProcess(task.RunCommand()).Wait(std::chrono::minutes(3));
  EXPECT_EQ(ending.code, 4) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: task \"T1\": its status couldn't be written"));
  EXPECT_THAT(ending.err, HasSubstr("is locked by another process"));
  EXPECT_EQ(task.Rows("SELECT COUNT(*), COUNT(DISTINCT code) FROM client"), "300|300\n");
}

}  // namespace
}  // namespace imptable
