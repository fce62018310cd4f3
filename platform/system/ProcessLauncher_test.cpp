#include "platform/system/ProcessLauncher.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <thread>

#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

/// The loop that is served during the wait. It asks the waiting program to end once that has
/// started.
class ServingLoop : public MessageLoop {
 public:
  explicit ServingLoop(const TemporaryFolder& folder) : folder_(folder) {}

  void Yield() override {
    ++yields_;
    if (folder_.Exists("started")) folder_.Write("end", "");
    if (fails_) throw std::runtime_error("tick");
  }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds, std::function<void()>) override {
    throw std::logic_error("nobody starts a timer here");
  }

  void Fail() { fails_ = true; }
  int yields() const { return yields_; }

 private:
  const TemporaryFolder& folder_;
  int yields_ = 0;
  bool fails_ = false;
};

class LaunchedProcess : public testing::Test {
 protected:
  TemporaryFolder folder_;
  ScopedVariable place_{"WAITING_PROGRAM_FOLDER", folder_.path()};
  ServingLoop loop_{folder_};
  std::unique_ptr<ProcessLauncher> launcher_ = SystemProcessLauncher();
};

TEST_F(LaunchedProcess, ReturnsWhenTheProgramHasEndedAndServesTheLoopUntilThen) {
  EXPECT_FALSE(launcher_->RunAndWait(WAITING_PROGRAM, loop_));
  EXPECT_TRUE(folder_.Exists("ended"));
  EXPECT_GT(loop_.yields(), 1);
}

TEST_F(LaunchedProcess, StartsAProgramWhosePathHasBlanks) {
  std::filesystem::create_directory(folder_.path() + "a folder");
  const std::string program = folder_.path() + "a folder/the program.exe";
  std::filesystem::copy_file(WAITING_PROGRAM, program);
  EXPECT_FALSE(launcher_->RunAndWait(program, loop_));
  EXPECT_TRUE(folder_.Exists("ended"));
}

TEST_F(LaunchedProcess, TellsThatTheProgramIsMissing) {
  EXPECT_EQ(launcher_->RunAndWait(folder_.path() + "missing.exe", loop_),
            std::make_error_code(std::errc::no_such_file_or_directory));
  EXPECT_EQ(loop_.yields(), 0);
}

TEST_F(LaunchedProcess, TellsThatAFileIsNoProgram) {
  EXPECT_TRUE(launcher_->RunAndWait(folder_.Write("program.exe", "text"), loop_));
  EXPECT_TRUE(launcher_->RunAndWait(folder_.path(), loop_)) << "a folder";
  EXPECT_EQ(loop_.yields(), 0);
}

TEST_F(LaunchedProcess, EndsTheWaitingWithTheExceptionOfATick) {
  loop_.Fail();
  EXPECT_THROW(launcher_->RunAndWait(WAITING_PROGRAM, loop_), std::runtime_error);
  EXPECT_EQ(loop_.yields(), 1);
  folder_.Write("end", "");
  for (int turns = 0; turns < 6000 && !folder_.Exists("ended"); ++turns) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(folder_.Exists("ended")) << "the program goes on by itself";
}

}  // namespace
}  // namespace imptable
