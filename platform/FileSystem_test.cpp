#include "platform/FileSystem.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class FileSystemTest : public testing::Test {
 protected:
  std::string At(const std::string& name) const { return folder_.path() + name; }

  std::string Read(const std::string& path) {
    std::error_code error;
    const auto file = files_->OpenForReading(path, error);
    if (!file) return "can't be opened: " + error.message();
    std::string text;
    char buffer[5];
    while (const std::size_t count = file->Read(buffer, sizeof buffer, error)) {
      text.append(buffer, count);
    }
    return error ? "can't be read: " + error.message() : text;
  }

  void Write(const std::string& path, WriteMode mode, std::string_view text) {
    std::error_code error;
    const auto file = files_->OpenForWriting(path, mode, error);
    ASSERT_NE(file, nullptr) << error.message();
    EXPECT_FALSE(error);
    EXPECT_FALSE(file->Write(text));
    EXPECT_FALSE(file->Close());
  }

  std::error_code ReadingFails(const std::string& path) {
    std::error_code error;
    EXPECT_EQ(files_->OpenForReading(path, error), nullptr) << path;
    return error;
  }

  std::error_code WritingFails(const std::string& path) {
    std::error_code error;
    EXPECT_EQ(files_->OpenForWriting(path, WriteMode::kAppend, error), nullptr) << path;
    return error;
  }

  TemporaryFolder folder_{testing::TempDir()};
  std::unique_ptr<FileSystem> files_ = SystemFileSystem();
};

std::error_code Error(std::errc code) { return std::make_error_code(code); }

TEST_F(FileSystemTest, ReadsAFileToItsEnd) {
  const std::string bytes("line 1\r\nline 2\n\0\xff", 17);
  EXPECT_EQ(Read(folder_.Write("a.txt", bytes)), bytes);
  EXPECT_EQ(Read(folder_.Write("empty.txt", "")), "");
}

TEST_F(FileSystemTest, ClearsTheErrorOfACallThatSucceeds) {
  const std::string path = folder_.Write("a.txt", "text");
  std::error_code error = Error(std::errc::io_error);
  const auto input = files_->OpenForReading(path, error);
  EXPECT_FALSE(error);
  error = Error(std::errc::io_error);
  char buffer[4];
  EXPECT_EQ(input->Read(buffer, sizeof buffer, error), 4u);
  EXPECT_FALSE(error);
  error = Error(std::errc::io_error);
  EXPECT_NE(files_->OpenForWriting(path, WriteMode::kAppend, error), nullptr);
  EXPECT_FALSE(error);
}

TEST_F(FileSystemTest, TruncatesOrAppends) {
  Write(At("a.txt"), WriteMode::kAppend, "created ");
  Write(At("a.txt"), WriteMode::kAppend, "and extended");
  EXPECT_EQ(folder_.Read("a.txt"), "created and extended");
  Write(At("a.txt"), WriteMode::kTruncate, "replaced");
  EXPECT_EQ(folder_.Read("a.txt"), "replaced");
}

TEST_F(FileSystemTest, HasWrittenWhenWriteReturns) {
  std::error_code error;
  const auto file = files_->OpenForWriting(At("a.txt"), WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Write("line\n"));
  EXPECT_EQ(folder_.Read("a.txt"), "line\n");
  EXPECT_FALSE(file->Write(""));
  EXPECT_FALSE(file->Write("next\n"));
  EXPECT_EQ(folder_.Read("a.txt"), "line\nnext\n");
}

TEST_F(FileSystemTest, WritesAllOfWhatGoesOutInPiecesAndIsInterrupted) {
  // A pipe takes no more than it has room for; the signals come while it is full.
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

TEST_F(FileSystemTest, TellsThatTheDiskIsFull) {
  std::error_code error;
  const auto file = files_->OpenForWriting("/dev/full", WriteMode::kAppend, error);
  ASSERT_NE(file, nullptr) << error.message();
  EXPECT_EQ(file->Write("line\n"), Error(std::errc::no_space_on_device));
  EXPECT_FALSE(file->Close());
}

TEST_F(FileSystemTest, ClosesOnce) {
  std::error_code error;
  const auto file = files_->OpenForWriting(At("a.txt"), WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Close());
  EXPECT_FALSE(file->Close());
  EXPECT_EQ(file->Write("late"), Error(std::errc::bad_file_descriptor));
}

TEST_F(FileSystemTest, ClosesAFileWithItsOwner) {
  folder_.Write("a.txt", "text");
  std::error_code error;
  // The system gives the lowest free number: it stays the same when each file is closed.
  const int before = dup(0);
  close(before);
  files_->OpenForReading(At("a.txt"), error).reset();
  files_->OpenForWriting(At("b.txt"), WriteMode::kTruncate, error).reset();
  ReadingFails(folder_.path());
  const int after = dup(0);
  close(after);
  EXPECT_EQ(after, before);
}

TEST_F(FileSystemTest, TellsWhyAFileCannotBeOpened) {
  EXPECT_EQ(ReadingFails(At("missing.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(ReadingFails(At("no/such.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(WritingFails(At("no/such.txt")), Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(WritingFails(""), Error(std::errc::no_such_file_or_directory));
  folder_.Write("a.txt", "text");
  EXPECT_EQ(ReadingFails(At("a.txt/b.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(WritingFails(At("a.txt/b.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(WritingFails(At(std::string(300, 'a'))), Error(std::errc::filename_too_long));
}

TEST_F(FileSystemTest, OpensNoDirectory) {
  EXPECT_EQ(ReadingFails(folder_.path()), Error(std::errc::is_a_directory));
  EXPECT_EQ(WritingFails(folder_.path()), Error(std::errc::is_a_directory));
}

TEST_F(FileSystemTest, ReadsRegularFilesOnlyAndDoesNotWaitForOthers) {
  ASSERT_EQ(mkfifo(At("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReadingFails(At("pipe")), Error(std::errc::invalid_argument));
  EXPECT_EQ(ReadingFails("/dev/zero"), Error(std::errc::invalid_argument));
}

TEST_F(FileSystemTest, RemovesAFile) {
  folder_.Write("a.txt", "text");
  EXPECT_FALSE(files_->Remove(At("a.txt")));
  EXPECT_FALSE(folder_.Exists("a.txt"));
  EXPECT_EQ(files_->Remove(At("a.txt")), Error(std::errc::no_such_file_or_directory));
}

TEST_F(FileSystemTest, RemovesNoDirectory) {
  std::filesystem::create_directory(At("directory"));
  EXPECT_TRUE(files_->Remove(At("directory")));
  EXPECT_TRUE(folder_.Exists("directory"));
}

TEST_F(FileSystemTest, TellsTheSizeOfAFile) {
  const auto file = files_->Query(folder_.Write("a.txt", "12345"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->size, 5u);
  EXPECT_FALSE(file->is_directory);
  const auto directory = files_->Query(folder_.path());
  ASSERT_TRUE(directory);
  EXPECT_TRUE(directory->is_directory);
  EXPECT_FALSE(files_->Query(At("missing.txt")));
  EXPECT_FALSE(files_->Query(At("a.txt/b.txt")));
}

TEST_F(FileSystemTest, KnowsTheSizeOfAFileOfMoreThanFourGigabytes) {
  folder_.Write("big.txt", "");
  std::filesystem::resize_file(At("big.txt"), 5'000'000'000);  // takes no room: it is all hole
  EXPECT_EQ(files_->Query(At("big.txt"))->size, 5'000'000'000u);
}

TEST(FileSystem, EndsLinesAndDirectoriesInTheWayOfTheSystem) {
  EXPECT_EQ(SystemLineEnd(), "\n");
  EXPECT_EQ(SystemPathSeparator(), '/');
}

}  // namespace
}  // namespace imptable
