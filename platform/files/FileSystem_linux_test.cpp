#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/files/FileSystem.h"
#include "platform/testing/FileSystemFixture.h"

namespace imptable {
namespace {

using FileSystemLinux = FileSystemFixture;

TEST_F(FileSystemLinux, WritesAllOfWhatGoesOutInPiecesAndIsInterrupted) {
  // The pipe is soon full, so a write has to wait. The signals interrupt that wait.
  static std::atomic<int> signals = 0;
  struct sigaction action {};
  action.sa_handler = [](int) { ++signals; };  // without SA_RESTART
  struct sigaction action_before {};
  ASSERT_EQ(sigaction(SIGUSR1, &action, &action_before), 0);
  ASSERT_EQ(mkfifo(At("pipe").c_str(), 0600), 0);
  const int reader = open(At("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(reader, 0);
  ASSERT_EQ(fcntl(reader, F_SETFL, 0), 0);
  std::error_code error;
  const auto file = files_->OpenForWriting(At("pipe"), WriteMode::kAppend, error);
  ASSERT_NE(file, nullptr);

  std::string received;
  std::thread reading([&received, reader, writer = pthread_self()] {
    while (signals < 3) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      pthread_kill(writer, SIGUSR1);
    }
    char buffer[1000];
    while (const ssize_t count = read(reader, buffer, sizeof buffer)) {
      if (count < 0) break;
      received.append(buffer, static_cast<std::size_t>(count));
    }
  });
  std::string sent;
  for (int i = 0; sent.size() < 1'000'000; ++i) sent += std::to_string(i);
  EXPECT_FALSE(file->Write(sent));
  EXPECT_FALSE(file->Close());
  reading.join();
  close(reader);
  sigaction(SIGUSR1, &action_before, nullptr);
  EXPECT_TRUE(received == sent) << received.size() << " of " << sent.size() << " bytes";
}

TEST_F(FileSystemLinux, TellsThatTheDiskIsFull) {
  std::error_code error;
  const auto file = files_->OpenForWriting("/dev/full", WriteMode::kAppend, error);
  ASSERT_NE(file, nullptr) << error.message();
  EXPECT_EQ(file->Write("line\n"), Error(std::errc::no_space_on_device));
  EXPECT_FALSE(file->Close());
}

TEST_F(FileSystemLinux, ClosesAFileWithItsOwner) {
  folder_.Write("a.txt", "text");
  std::error_code error;
  // The system gives the lowest free descriptor: the same one again when every file was closed.
  const int before = dup(0);
  close(before);
  files_->OpenForReading(At("a.txt"), error).reset();
  files_->OpenForWriting(At("b.txt"), WriteMode::kTruncate, error).reset();
  ReadingFails(folder_.path());
  const int after = dup(0);
  close(after);
  EXPECT_EQ(after, before);
}

TEST_F(FileSystemLinux, TellsWhyAFileCannotBeOpened) {
  EXPECT_EQ(ReadingFails(At("missing.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(ReadingFails(At("no/such.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(WritingFails(At("no/such.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(WritingFails(""), Error(std::errc::no_such_file_or_directory));
  folder_.Write("a.txt", "text");
  EXPECT_EQ(ReadingFails(At("a.txt/b.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(WritingFails(At("a.txt/b.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(WritingFails(At(std::string(300, 'a'))), Error(std::errc::filename_too_long));
}

TEST_F(FileSystemLinux, TellsAFileThatCannotBeLookedAtFromNone) {
  const auto error_of = [this](const std::string& path) {
    std::error_code error = Error(std::errc::io_error);
    EXPECT_FALSE(files_->Query(path, error)) << path;
    return error;
  };
  folder_.Write("a.txt", "text");
  EXPECT_FALSE(error_of(At("missing.txt")));
  EXPECT_FALSE(error_of(At("a.txt/b.txt")));
  EXPECT_FALSE(error_of(At(std::string(300, 'a'))));
  ASSERT_EQ(symlink("around", At("around").c_str()), 0);
  EXPECT_EQ(error_of(At("around")), Error(std::errc::too_many_symbolic_link_levels));
}

TEST_F(FileSystemLinux, ReadsRegularFilesOnlyAndDoesNotWaitForOthers) {
  ASSERT_EQ(mkfifo(At("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReadingFails(At("pipe")), Error(std::errc::invalid_argument));
  EXPECT_EQ(ReadingFails("/dev/zero"), Error(std::errc::invalid_argument));
}

TEST_F(FileSystemLinux, EndsLinesAndDirectoriesInTheWayOfTheSystem) {
  EXPECT_EQ(SystemLineEnd(), "\n");
  EXPECT_EQ(SystemPathSeparator(), '/');
}

}  // namespace
}  // namespace imptable
