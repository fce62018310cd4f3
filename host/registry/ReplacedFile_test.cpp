#include "host/registry/ReplacedFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class FileReplacement : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return folder.path() + name; }

  std::ptrdiff_t FilesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
  }

  mode_t ModeOf(const std::string& name) const {
    struct stat status {};
    EXPECT_EQ(stat(Path(name).c_str(), &status), 0);
    return status.st_mode & 07777;
  }

  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(FileReplacement, IsForItsOwnerOnlyWhenItIsNew) {
  EXPECT_FALSE(ReplaceFile(Path("a"), "bytes"));
  EXPECT_EQ(folder.Read("a"), "bytes");
  EXPECT_EQ(ModeOf("a"), 0600U);
}

TEST_F(FileReplacement, TakesThePlaceAndTheModeOfTheOldOne) {
  folder.Write("a", "the old and longer content");
  chmod(Path("a").c_str(), 0640);
  EXPECT_FALSE(ReplaceFile(Path("a"), "new"));
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_EQ(ModeOf("a"), 0640U);
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(FileReplacement, LeavesALinkALink) {
  folder.Write("a", "old");
  std::filesystem::create_symlink("a", Path("link"));
  EXPECT_FALSE(ReplaceFile(Path("link"), "new"));
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(Path("link")));
}

TEST_F(FileReplacement, IsAnErrorThatLeavesNothingBehind) {
  EXPECT_EQ(ReplaceFile(Path("no/such/folder"), "x"), std::errc::no_such_file_or_directory);
  std::filesystem::create_directory(Path("dir"));
  EXPECT_EQ(ReplaceFile(Path("dir"), "x"), std::errc::is_a_directory);
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(FileReplacement, WritesDirectlyToWhatIsNoPlainFile) {
  EXPECT_FALSE(ReplaceFile("/dev/null", "x"));
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_EQ(ReplaceFile("/dev/full", "x"), std::errc::no_space_on_device);
}

TEST(ReplacedFiles, AreMadeWhereADanglingLinkLeads) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() + "sub");
  std::filesystem::create_symlink("sub/second", folder.path() + "first");
  std::filesystem::create_symlink("target.reg", folder.path() + "sub/second");
  EXPECT_FALSE(ReplaceFile(folder.path() + "first", "text"));
  EXPECT_EQ(folder.Read("sub/target.reg"), "text");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() + "first"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path() + "sub/second"));
}

}  // namespace
}  // namespace imptable
