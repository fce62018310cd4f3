#include "platform/testing/FaultyFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace imptable {
namespace {

using testing::ElementsAre;

const std::error_code kFull = std::make_error_code(std::errc::no_space_on_device);

class TextFile : public InputFile, public OutputFile {
 public:
  TextFile(std::string& text, int& closed) : text_(text), closed_(closed) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    const std::size_t count = text_.copy(buffer, size, position_);
    position_ += count;
    return count;
  }
  std::error_code Write(std::string_view bytes) override {
    text_ += bytes;
    return {};
  }
  std::error_code Flush() override { return {}; }
  std::error_code Close() override {
    ++closed_;
    return {};
  }

 private:
  std::string& text_;
  int& closed_;
  std::size_t position_ = 0;
};

/// Just enough of a file system to see what is passed on.
class TextFiles : public FileSystem {
 public:
  std::map<std::string, std::string> texts;
  int closed = 0;

  std::string Locate(std::string_view path) const override { return std::string(path) + "?"; }
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override {
    error.clear();
    return FileInfo{.size = texts.at(path).size()};
  }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override {
    error.clear();
    return std::make_unique<TextFile>(texts[path], closed);
  }
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override {
    error.clear();
    if (mode == WriteMode::kTruncate) texts[path].clear();
    return std::make_unique<TextFile>(texts[path], closed);
  }
  std::error_code Remove(const std::string& path) override {
    return texts.erase(path) > 0 ? std::error_code() : std::make_error_code(std::errc::io_error);
  }
  std::error_code Replace(const std::string& from, const std::string& to) override {
    texts[to] = texts.at(from);
    return Remove(from);
  }
};

TEST(FaultyFileSystem, PassesEverythingOnAndLogsIt) {
  TextFiles texts;
  FaultyFileSystem files(texts);
  std::error_code error = kFull;

  auto out = files.OpenForWriting("/x.TRC", WriteMode::kTruncate, error);
  EXPECT_FALSE(error);
  EXPECT_FALSE(out->Write("eighteen bytes end"));
  EXPECT_FALSE(out->Flush());
  EXPECT_FALSE(out->Close());
  files.OpenForWriting("/x.TRC", WriteMode::kAppend, error);
  char buffer[40];
  EXPECT_EQ(files.OpenForReading("/x.TRC", error)->Read(buffer, sizeof buffer, error), 18u);
  EXPECT_EQ(files.Query("/x.TRC")->size, 18u);
  EXPECT_EQ(files.Locate("/y"), "/y?");
  EXPECT_FALSE(files.Remove("/x.TRC"));
  EXPECT_TRUE(files.Remove("/x.TRC"));
  texts.texts["/new"] = "new";
  EXPECT_FALSE(files.Replace("/new", "/x.TRC"));
  EXPECT_EQ(texts.texts["/x.TRC"], "new");

  EXPECT_THAT(files.log(),
              ElementsAre("open write /x.TRC", "write /x.TRC 18", "flush /x.TRC", "close /x.TRC",
                          "open append /x.TRC", "open read /x.TRC", "read /x.TRC 18",
                          "remove /x.TRC", "remove /x.TRC", "replace /x.TRC by /new"));
}

TEST(FaultyFileSystem, FailsOnlyTheNthOperationOfItsKind) {
  TextFiles texts;
  FaultyFileSystem files(texts);
  files.Fail(FileOperation::kWrite, 2, kFull);
  std::error_code error;
  auto out = files.OpenForWriting("/a", WriteMode::kTruncate, error);
  EXPECT_FALSE(out->Write("1"));
  EXPECT_EQ(out->Write("2"), kFull);
  EXPECT_FALSE(out->Write("3"));
  EXPECT_EQ(texts.texts["/a"], "13");
}

TEST(FaultyFileSystem, CanGoOnFailing) {
  TextFiles texts;
  FaultyFileSystem files(texts);
  files.FailFrom(FileOperation::kWrite, 2, kFull);
  std::error_code error;
  auto out = files.OpenForWriting("/a", WriteMode::kTruncate, error);
  EXPECT_FALSE(out->Write("1"));
  EXPECT_EQ(out->Write("2"), kFull);
  EXPECT_EQ(out->Write("3"), kFull);
  EXPECT_EQ(texts.texts["/a"], "1");
}

TEST(FaultyFileSystem, FailsOpeningReadingAndRemoving) {
  TextFiles texts;
  texts.texts["/a"] = "text";
  FaultyFileSystem files(texts);
  files.Fail(FileOperation::kOpenRead, 1, kFull);
  files.Fail(FileOperation::kOpenWrite, 1, kFull);
  files.Fail(FileOperation::kRead, 1, kFull);
  files.Fail(FileOperation::kRemove, 1, kFull);

  std::error_code error;
  EXPECT_EQ(files.OpenForReading("/a", error), nullptr);
  EXPECT_EQ(error, kFull);
  error.clear();
  EXPECT_EQ(files.OpenForWriting("/a", WriteMode::kTruncate, error), nullptr);
  EXPECT_EQ(error, kFull);
  char buffer[4];
  EXPECT_EQ(files.OpenForReading("/a", error)->Read(buffer, sizeof buffer, error), 0u);
  EXPECT_EQ(error, kFull);
  EXPECT_EQ(files.Remove("/a"), kFull);
  EXPECT_EQ(texts.texts["/a"], "text");
}

TEST(FaultyFileSystem, FailsFlushingAndReplacing) {
  TextFiles texts;
  texts.texts["/new"] = "new";
  FaultyFileSystem files(texts);
  files.Fail(FileOperation::kFlush, 1, kFull);
  files.Fail(FileOperation::kReplace, 1, kFull);
  std::error_code error;
  const auto out = files.OpenForWriting("/a", WriteMode::kTruncate, error);
  EXPECT_EQ(out->Flush(), kFull);
  EXPECT_FALSE(out->Flush());
  EXPECT_EQ(files.Replace("/new", "/a"), kFull);
  EXPECT_EQ(texts.texts["/a"], "");
  EXPECT_FALSE(files.Replace("/new", "/a"));
}

TEST(FaultyFileSystem, ClosesTheFileWhoseCloseFails) {
  TextFiles texts;
  FaultyFileSystem files(texts);
  files.Fail(FileOperation::kClose, 1, kFull);
  std::error_code error;
  auto out = files.OpenForWriting("/a", WriteMode::kTruncate, error);
  EXPECT_EQ(out->Close(), kFull);
  EXPECT_EQ(texts.closed, 1);
}

}  // namespace
}  // namespace imptable
