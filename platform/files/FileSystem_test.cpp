#include "platform/files/FileSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "platform/testing/FileSystemFixture.h"

namespace imptable {
namespace {

using SystemFiles = FileSystemFixture;

TEST_F(SystemFiles, ReadsAFileToItsEnd) {
  const std::string bytes("line 1\r\nline 2\n\0\xff", 17);
  EXPECT_EQ(Read(folder_.Write("a.txt", bytes)), bytes);
  EXPECT_EQ(Read(folder_.Write("empty.txt", "")), "");
}

TEST_F(SystemFiles, ClearsTheErrorOfACallThatSucceeds) {
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

TEST_F(SystemFiles, GoesOnFurtherInAFileWithoutReadingIt) {
  std::error_code error;
  const auto input = files_->OpenForReading(folder_.Write("a.txt", "0123456789"), error);
  char buffer[20];
  EXPECT_EQ(input->Read(buffer, 2, error), 2u);
  EXPECT_FALSE(input->Skip(5));
  EXPECT_EQ(input->Read(buffer, 2, error), 2u);
  EXPECT_EQ(std::string(buffer, 2), "78");
  EXPECT_FALSE(input->Skip(100));
  EXPECT_EQ(input->Read(buffer, 2, error), 0u);
  EXPECT_FALSE(error);
}

TEST_F(SystemFiles, TellsWhenAFileWasLastChanged) {
  const std::string path = folder_.Write("a.txt", "text");
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
  EXPECT_NEAR(static_cast<double>(files_->Query(path)->modified), static_cast<double>(seconds), 60);
}

TEST_F(SystemFiles, TruncatesOrAppends) {
  Write(At("a.txt"), WriteMode::kAppend, "created ");
  Write(At("a.txt"), WriteMode::kAppend, "and extended");
  EXPECT_EQ(folder_.Read("a.txt"), "created and extended");
  Write(At("a.txt"), WriteMode::kTruncate, "replaced");
  EXPECT_EQ(folder_.Read("a.txt"), "replaced");
}

TEST_F(SystemFiles, AppendsWhereTheFileEndsWhoeverWroteIt) {
  std::error_code error;
  const auto first = files_->OpenForWriting(At("a.txt"), WriteMode::kAppend, error);
  const auto second = files_->OpenForWriting(At("a.txt"), WriteMode::kAppend, error);
  ASSERT_NE(second, nullptr) << error.message();
  EXPECT_FALSE(first->Write("one "));
  EXPECT_FALSE(second->Write("two "));
  EXPECT_FALSE(first->Write("three"));
  EXPECT_EQ(folder_.Read("a.txt"), "one two three");
}

TEST_F(SystemFiles, LetsAFileThatIsReadBeWrittenAndRemoved) {
  folder_.Write("a.txt", "line 1\n");
  std::error_code error;
  const auto input = files_->OpenForReading(At("a.txt"), error);
  Write(At("a.txt"), WriteMode::kAppend, "line 2\n");
  char buffer[20];
  EXPECT_EQ(input->Read(buffer, sizeof buffer, error), 14u);
  EXPECT_FALSE(files_->Remove(At("a.txt")));
}

TEST_F(SystemFiles, HasWrittenWhenWriteReturns) {
  std::error_code error;
  const auto file = files_->OpenForWriting(At("a.txt"), WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Write("line\n"));
  EXPECT_EQ(folder_.Read("a.txt"), "line\n");
  EXPECT_FALSE(file->Write(""));
  EXPECT_FALSE(file->Write("next\n"));
  EXPECT_EQ(folder_.Read("a.txt"), "line\nnext\n");
}

TEST_F(SystemFiles, ClosesOnce) {
  std::error_code error;
  const auto file = files_->OpenForWriting(At("a.txt"), WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Close());
  EXPECT_FALSE(file->Close());
  EXPECT_EQ(file->Write("late"), Error(std::errc::bad_file_descriptor));
}

TEST_F(SystemFiles, TellsThatAFileIsMissing) {
  EXPECT_EQ(ReadingFails(At("missing.txt")), Error(std::errc::no_such_file_or_directory));
}

TEST_F(SystemFiles, OpensNoDirectory) {
  EXPECT_EQ(ReadingFails(folder_.path()), Error(std::errc::is_a_directory));
  EXPECT_EQ(WritingFails(folder_.path()), Error(std::errc::is_a_directory));
}

TEST_F(SystemFiles, RemovesAFile) {
  folder_.Write("a.txt", "text");
  EXPECT_FALSE(files_->Remove(At("a.txt")));
  EXPECT_FALSE(folder_.Exists("a.txt"));
  EXPECT_EQ(files_->Remove(At("a.txt")), Error(std::errc::no_such_file_or_directory));
}

TEST_F(SystemFiles, ReplacesAFileByAnother) {
  folder_.Write("old.txt", "old");
  folder_.Write("new.txt", "new");
  EXPECT_FALSE(files_->Replace(At("new.txt"), At("old.txt")));
  EXPECT_EQ(Read(At("old.txt")), "new");
  EXPECT_FALSE(files_->Query(At("new.txt")));
  EXPECT_FALSE(files_->Replace(At("old.txt"), At("absent.txt")));
  EXPECT_EQ(Read(At("absent.txt")), "new");
  EXPECT_EQ(files_->Replace(At("none.txt"), At("absent.txt")),
            Error(std::errc::no_such_file_or_directory));
  EXPECT_EQ(Read(At("absent.txt")), "new");
}

TEST_F(SystemFiles, BringsWhatWasWrittenToTheDisk) {
  std::error_code error;
  const auto file = files_->OpenForWriting(At("a.txt"), WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Write("line\n"));
  EXPECT_FALSE(file->Flush());
  EXPECT_EQ(Read(At("a.txt")), "line\n");
  EXPECT_FALSE(file->Close());
  EXPECT_EQ(file->Flush(), Error(std::errc::bad_file_descriptor));
}

TEST_F(SystemFiles, RemovesNoDirectory) {
  std::filesystem::create_directory(At("directory"));
  EXPECT_TRUE(files_->Remove(At("directory")));
  EXPECT_TRUE(folder_.Exists("directory"));
}

TEST_F(SystemFiles, TellsTheSizeOfAFile) {
  const auto file = files_->Query(folder_.Write("a.txt", "12345"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->size, 5u);
  EXPECT_TRUE(file->is_file);
  const auto directory = files_->Query(folder_.path());
  ASSERT_TRUE(directory);
  EXPECT_FALSE(directory->is_file);
  EXPECT_FALSE(files_->Query(At("missing.txt")));
  EXPECT_FALSE(files_->Query(At("a.txt/b.txt")));
}

TEST_F(SystemFiles, KnowsTheSizeOfAFileOfMoreThanFourGigabytes) {
  folder_.Write("big.txt", "");
  std::filesystem::resize_file(At("big.txt"), 5'000'000'000);  // takes no room: it is all hole
  EXPECT_EQ(files_->Query(At("big.txt"))->size, 5'000'000'000u);
}

}  // namespace
}  // namespace imptable
