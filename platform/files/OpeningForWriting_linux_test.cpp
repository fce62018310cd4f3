#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/testing/FileSystemFixture.h"

namespace imptable {
namespace {

constexpr uid_t kSomebodyElse = 65534;

/// A folder with the file "own.txt" and links to it.
class WritingThroughLinks : public FileSystemFixture {
 protected:
  WritingThroughLinks() { folder_.Write("own.txt", "kept\n"); }

  void Link(const std::string& name, const std::string& target) {
    std::filesystem::create_symlink(target, At(name));
  }

  void GiveAway(const std::string& name) {
    ASSERT_EQ(lchown(At(name).c_str(), kSomebodyElse, kSomebodyElse), 0);
  }

  std::error_code ReplacingFails(const std::string& path) {
    std::error_code error;
    EXPECT_EQ(files_->OpenForWriting(path, WriteMode::kTruncate, error), nullptr) << path;
    return error;
  }

  mode_t ModeOf(const std::string& name) const {
    struct stat status {};
    EXPECT_EQ(stat(At(name).c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  const std::error_code kLink = Error(std::errc::too_many_symbolic_link_levels);
};

TEST_F(WritingThroughLinks, ReplacesNoFileThroughOneNotEvenTheUsersOwn) {
  Link("link", "own.txt");
  EXPECT_EQ(ReplacingFails(At("link")), kLink);
  EXPECT_EQ(folder_.Read("own.txt"), "kept\n");
}

TEST_F(WritingThroughLinks, CreatesNoFileThroughOneThatLeadsNowhere) {
  Link("link", "new.txt");
  EXPECT_EQ(ReplacingFails(At("link")), kLink);
  EXPECT_FALSE(folder_.Exists("new.txt"));
}

TEST_F(WritingThroughLinks, ReplacesFilesInAFolderThatIsALink) {
  std::filesystem::create_directory(At("folder"));
  Link("link", "folder");
  Write(At("link/a.txt"), WriteMode::kTruncate, "text");
  EXPECT_EQ(folder_.Read("folder/a.txt"), "text");
}

TEST_F(WritingThroughLinks, ReplacesRegularFilesOnlyAndDoesNotWaitForOthers) {
  ASSERT_EQ(mkfifo(At("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReplacingFails(At("pipe")), Error(std::errc::invalid_argument));
  EXPECT_EQ(ReplacingFails("/dev/null"), Error(std::errc::invalid_argument));
  EXPECT_EQ(ReplacingFails(folder_.path()), Error(std::errc::is_a_directory));
}

TEST_F(WritingThroughLinks, AppendsThroughThoseOfTheUser) {
  std::filesystem::create_directory(At("folder"));
  Link("folder/second", "../own.txt");
  Link("first", "folder/second");
  Link("absolute", At("first"));
  Write(At("absolute"), WriteMode::kAppend, "more\n");
  EXPECT_EQ(folder_.Read("own.txt"), "kept\nmore\n");
  Link("new", "new.txt");
  Write(At("new"), WriteMode::kAppend, "created\n");
  EXPECT_EQ(folder_.Read("new.txt"), "created\n");
}

TEST_F(WritingThroughLinks, AppendsToWhateverStandardOutputIs) {
  // Like /dev/stdout, this link leads through /proc.
  Link("out", "/proc/self/fd/" + std::to_string(STDOUT_FILENO));
  std::error_code error;
  EXPECT_NE(files_->OpenForWriting(At("out"), WriteMode::kAppend, error), nullptr)
      << error.message();
}

TEST_F(WritingThroughLinks, GivesUpOnALoop) {
  Link("one", "two");
  Link("two", "one");
  EXPECT_EQ(WritingFails(At("one")), kLink);
}

TEST_F(WritingThroughLinks, AppendsThroughNoneThatSomebodyElseMade) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make another user's link";
  Link("planted", "own.txt");
  GiveAway("planted");
  Link("own", "planted");
  EXPECT_EQ(WritingFails(At("planted")), kLink);
  EXPECT_EQ(WritingFails(At("own")), kLink);
  EXPECT_EQ(folder_.Read("own.txt"), "kept\n");
}

TEST_F(WritingThroughLinks, GivesNewFilesTheRightsThatTheUmaskLeaves) {
  for (const mode_t mask : {0000U, 0022U, 0077U}) {
    const mode_t before = umask(mask);
    const std::string name = std::to_string(mask);
    Write(At("replaced " + name), WriteMode::kTruncate, "text");
    Write(At("appended " + name), WriteMode::kAppend, "text");
    umask(before);
    EXPECT_EQ(ModeOf("replaced " + name), 0666U & ~mask);
    EXPECT_EQ(ModeOf("appended " + name), 0666U & ~mask);
  }
}

}  // namespace
}  // namespace imptable
