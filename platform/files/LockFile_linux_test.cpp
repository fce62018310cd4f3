#include "platform/files/LockFile_linux.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <optional>
#include <thread>
#include <vector>

#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using State = LockFile::State;

class Locks : public testing::Test {
 protected:
  TemporaryFolder folder_{testing::TempDir()};
  const std::string path_ = folder_.path() + "CLIENTS.LCK";
};

TEST_F(Locks, AreHeldByOneAtATimeWhichIsNamed) {
  {
    const LockFile first(path_);
    EXPECT_EQ(first.state(), State::kLocked);
    const LockFile second(path_);
    EXPECT_EQ(second.state(), State::kBusy);
    EXPECT_EQ(second.holder(), getpid());
  }
  EXPECT_FALSE(folder_.Exists("CLIENTS.LCK"));
  EXPECT_EQ(LockFile(path_).state(), State::kLocked);
}

TEST_F(Locks, AreNotTakenAwayByOneThatWasRefused) {
  const LockFile first(path_);
  EXPECT_EQ(LockFile(path_).state(), State::kBusy);
  EXPECT_TRUE(folder_.Exists("CLIENTS.LCK"));
  EXPECT_EQ(LockFile(path_).state(), State::kBusy);
}

TEST_F(Locks, GoWithAProcessThatIsKilledThoughItsFileStays) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const LockFile lock(path_);
    if (write(ready[1], "x", 1) == 1) pause();
    _exit(1);
  }
  char byte = 0;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  const LockFile refused(path_);
  EXPECT_EQ(refused.state(), State::kBusy);
  EXPECT_EQ(refused.holder(), child);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  close(ready[0]);
  close(ready[1]);
  EXPECT_TRUE(folder_.Exists("CLIENTS.LCK"));
  EXPECT_EQ(LockFile(path_).state(), State::kLocked);
  EXPECT_FALSE(folder_.Exists("CLIENTS.LCK"));
}

TEST_F(Locks, AreHeldByOneAtATimeWhileTheirFileComesAndGoes) {
  std::atomic<int> holders = 0;
  std::atomic<int> held = 0;
  std::atomic<bool> overlapped = false;
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([&] {
      while (held < 300) {
        const LockFile lock(path_);
        if (lock.state() != State::kLocked) continue;
        if (++holders != 1) overlapped = true;
        ++held;
        std::this_thread::yield();
        --holders;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(overlapped);
}

TEST_F(Locks, NameNobodyWhenTheFileDoesNot) {
  for (const char* text : {"", "x\n", "12", "-5\n", "99999999999999999999999\n"}) {
    const LockFile first(path_);
    folder_.Write("CLIENTS.LCK", text);
    EXPECT_EQ(LockFile(path_).holder(), std::nullopt) << text;
  }
}

TEST_F(Locks, DoNotFollowALink) {
  folder_.Write("kept.txt", "kept");
  for (const char* target : {"kept.txt", "nowhere"}) {
    std::filesystem::create_symlink(target, path_);
    const LockFile lock(path_);
    EXPECT_EQ(lock.state(), State::kUnusable);
    EXPECT_EQ(lock.error(), std::errc::too_many_symbolic_link_levels);
    std::filesystem::remove(path_);
  }
  EXPECT_EQ(folder_.Read("kept.txt"), "kept");
  EXPECT_FALSE(folder_.Exists("nowhere"));
}

TEST_F(Locks, AreUnusableWhereSomethingElseStands) {
  std::filesystem::create_directory(path_);
  EXPECT_EQ(LockFile(path_).state(), State::kUnusable);
  std::filesystem::remove(path_);
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_EQ(LockFile(path_).state(), State::kUnusable);
  EXPECT_TRUE(folder_.Exists("CLIENTS.LCK"));
}

TEST_F(Locks, AreNoneWhereNoFileCanBeMade) {
  const LockFile lock(folder_.path() + "missing/CLIENTS.LCK");
  EXPECT_EQ(lock.state(), State::kNone);
  EXPECT_EQ(lock.error(), std::errc::no_such_file_or_directory);
  EXPECT_EQ(LockFile("/proc/CLIENTS.LCK").state(), State::kNone);
}

TEST_F(Locks, OfOtherUsersAreKnownByWhoMayReadTheirFileAlone) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can be two users";
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  const auto seen_by_another_user = [this] {
    const pid_t child = fork();
    if (child == 0) {
      if (setgid(65534) != 0 || setuid(65534) != 0) _exit(99);
      _exit(static_cast<int>(LockFile(path_).state()));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return static_cast<State>(WEXITSTATUS(status));
  };
  {
    const LockFile lock(path_);
    ASSERT_EQ(chmod(path_.c_str(), 0644), 0);
    EXPECT_EQ(seen_by_another_user(), State::kBusy);
    ASSERT_EQ(chmod(path_.c_str(), 0600), 0);
    EXPECT_EQ(seen_by_another_user(), State::kUnusable);
  }
  EXPECT_EQ(seen_by_another_user(), State::kNone);
}

}  // namespace
}  // namespace imptable
