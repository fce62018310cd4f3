#ifndef PLATFORM_TESTING_FILESYSTEMFIXTURE_H_
#define PLATFORM_TESTING_FILESYSTEMFIXTURE_H_

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/files/FileSystem.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {

/// The system's files, in a folder of the test's own.
class FileSystemFixture : public testing::Test {
 protected:
  static std::error_code Error(std::errc code) { return std::make_error_code(code); }

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

}  // namespace imptable

#endif  // PLATFORM_TESTING_FILESYSTEMFIXTURE_H_
