#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files/FileSystem.h"
#include "platform/testing/FileSystemFixture.h"
#include "platform/windows/WindowsError_win32.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

using FileSystemWindows = FileSystemFixture;

/// A file that somebody else keeps open.
class ForeignHandle {
 public:
  ForeignHandle(const std::string& path, DWORD access, DWORD share)
      : raw_(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(raw_, INVALID_HANDLE_VALUE) << path;
  }
  ~ForeignHandle() { CloseHandle(raw_); }
  ForeignHandle(const ForeignHandle&) = delete;
  ForeignHandle& operator=(const ForeignHandle&) = delete;

 private:
  HANDLE raw_;
};

TEST_F(FileSystemWindows, FindsAFileUnderItsNameInAnyCase) {
  EXPECT_EQ(files_->Locate("no\\Such.TXT"), "no\\Such.TXT");
  folder_.Write("Data.TXT", "text");
  EXPECT_EQ(files_->Locate(At("dATA.txt")), At("dATA.txt"));
  EXPECT_EQ(Read(At("dATA.txt")), "text");
}

TEST_F(FileSystemWindows, TellsWhyAFileCannotBeOpened) {
  EXPECT_EQ(ReadingFails(At("no\\such.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(WritingFails(At("no\\such.txt")), Error(std::errc::not_a_directory));
  EXPECT_EQ(ReadingFails(At("a|b.txt")), Error(std::errc::invalid_argument));
  EXPECT_EQ(WritingFails(At("a*.txt")), Error(std::errc::invalid_argument));
  EXPECT_EQ(WritingFails(At(std::string(300, 'a'))), Error(std::errc::filename_too_long));
  EXPECT_TRUE(ReadingFails(""));
  EXPECT_TRUE(WritingFails(""));
}

TEST_F(FileSystemWindows, TellsAFileThatCannotBeLookedAtFromNone) {
  const auto error_of = [this](const std::string& path) {
    std::error_code error = Error(std::errc::io_error);
    EXPECT_FALSE(files_->Query(path, error)) << path;
    return error;
  };
  folder_.Write("a.txt", "text");
  EXPECT_FALSE(error_of(At("missing.txt")));
  EXPECT_FALSE(error_of(At("no\\such.txt")));
  EXPECT_FALSE(error_of(At("a.txt\\b.txt")));
  EXPECT_FALSE(error_of(At("a|b.txt")));
  EXPECT_FALSE(error_of(At(std::string(300, 'a'))));
  EXPECT_FALSE(error_of("Q:\\a.txt"));
  EXPECT_TRUE(error_of("\\\\no-such-server\\share\\a.txt"));
}

TEST_F(FileSystemWindows, OpensNoFileThatAnotherKeepsToItself) {
  const std::string path = folder_.Write("a.txt", "text");
  {
    const ForeignHandle other(path, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(WritingFails(path), Error(std::errc::permission_denied));
    EXPECT_EQ(Read(path), "text");
    EXPECT_EQ(files_->Remove(path), Error(std::errc::permission_denied));
  }
  {
    const ForeignHandle other(path, GENERIC_WRITE, 0);
    EXPECT_EQ(ReadingFails(path), Error(std::errc::permission_denied));
  }
}

TEST_F(FileSystemWindows, LetsOthersReadAndAppendToAFileThatIsWrittenButNotRemoveIt) {
  const std::string path = At("a.txt");
  std::error_code error;
  const auto file = files_->OpenForWriting(path, WriteMode::kTruncate, error);
  EXPECT_FALSE(file->Write("line\n"));
  {
    const ForeignHandle reader(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    const ForeignHandle writer(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE);
  }
  EXPECT_EQ(Read(path), "line\n");
  EXPECT_EQ(DeleteFileA(path.c_str()), 0);
  EXPECT_TRUE(folder_.Exists("a.txt"));
}

TEST_F(FileSystemWindows, ClosesAFileWithItsOwner) {
  const std::string path = folder_.Write("a.txt", "text");
  std::error_code error;
  files_->OpenForReading(path, error).reset();
  files_->OpenForWriting(path, WriteMode::kAppend, error).reset();
  const ForeignHandle alone(path, GENERIC_READ | GENERIC_WRITE, 0);
}

TEST_F(FileSystemWindows, ReadsNoDeviceAndNoPipe) {
  EXPECT_EQ(ReadingFails("NUL"), Error(std::errc::invalid_argument));
  constexpr const char* kName = R"(\\.\pipe\imptable-FileSystem_win32_test)";
  const HANDLE pipe =
      CreateNamedPipeA(kName, PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 1, 64, 64, 0, nullptr);
  ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ReadingFails(kName), Error(std::errc::invalid_argument));
  CloseHandle(pipe);
}

TEST_F(FileSystemWindows, TakesPathsOfAllKinds) {
  const std::string path = folder_.Write("a.txt", "text");
  std::string slashes = path;
  for (char& each : slashes) each = each == '\\' ? '/' : each;
  EXPECT_EQ(Read(slashes), "text");
  EXPECT_EQ(Read(R"(\\?\)" + path), "text");

  std::string before(MAX_PATH, '\0');
  before.resize(GetCurrentDirectoryA(MAX_PATH, before.data()));
  ASSERT_NE(SetCurrentDirectoryA(folder_.path().c_str()), 0);
  EXPECT_EQ(Read("a.txt"), "text");
  EXPECT_EQ(Read(".\\a.txt"), "text");
  Write("b.txt", WriteMode::kTruncate, "more");
  SetCurrentDirectoryA(before.c_str());
  EXPECT_EQ(folder_.Read("b.txt"), "more");
}

TEST_F(FileSystemWindows, TakesNamesInTheCodePageOfTheUser) {
  const bool utf8 = GetACP() == CP_UTF8;
  const std::string name = utf8 ? "\xC3\xA9t\xC3\xA9.txt" : "\xE9t\xE9.txt";
  Write(At(name), WriteMode::kTruncate, "text");
  EXPECT_NE(
      GetFileAttributesW((std::filesystem::path(folder_.path()) / L"\u00e9t\u00e9.txt").c_str()),
      INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(files_->Query(At(name))->size, 4u);
}

TEST_F(FileSystemWindows, AppendsToAndReadsAFileOfMoreThanFourGigabytes) {
  const std::string path = folder_.Write("big.txt", "");
  std::filesystem::resize_file(path, 5'000'000'000);
  Write(path, WriteMode::kAppend, "end");
  EXPECT_EQ(files_->Query(path)->size, 5'000'000'003u);
}

TEST_F(FileSystemWindows, EndsLinesAndDirectoriesInTheWayOfTheSystem) {
  EXPECT_EQ(SystemLineEnd(), "\r\n");
  EXPECT_EQ(SystemPathSeparator(), '\\');
}

TEST(WindowsError, SaysInCommonTermsWhatTheSystemSays) {
  EXPECT_EQ(ErrorOf(ERROR_SUCCESS), std::error_code());
  struct Case {
    DWORD code;
    std::errc meaning;
  };
  for (const Case& each : {Case{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
                           {ERROR_PATH_NOT_FOUND, std::errc::not_a_directory},
                           {ERROR_BAD_NETPATH, std::errc::not_a_directory},
                           {ERROR_ACCESS_DENIED, std::errc::permission_denied},
                           {ERROR_SHARING_VIOLATION, std::errc::permission_denied},
                           {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
                           {ERROR_DISK_FULL, std::errc::no_space_on_device},
                           {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
                           {ERROR_INVALID_NAME, std::errc::invalid_argument},
                           {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
                           {ERROR_TOO_MANY_OPEN_FILES, std::errc::too_many_files_open},
                           {ERROR_NOT_READY, std::errc::io_error},
                           {ERROR_CRC, std::errc::io_error}}) {
    EXPECT_EQ(ErrorOf(each.code), std::make_error_code(each.meaning)) << each.code;
  }
}

}  // namespace
}  // namespace imptable
