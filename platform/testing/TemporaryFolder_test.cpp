#include "platform/testing/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ios>
#include <string>

#include "platform/files/FileSystem.h"

namespace imptable {
namespace {

using namespace std::string_literals;

TEST(TemporaryFolder, GivesBackTheBytesThatWereWritten) {
  const TemporaryFolder folder;
  const std::string bytes = "line\r\n\0\xff"s;
  EXPECT_EQ(folder.Write("a.txt", bytes), folder.path() + "a.txt");
  EXPECT_EQ(folder.Read("a.txt"), bytes);
  folder.Write("a.txt", "");
  EXPECT_EQ(folder.Read("a.txt"), "");
}

TEST(TemporaryFolder, TellsWhetherAFileExists) {
  const TemporaryFolder folder;
  EXPECT_FALSE(folder.Exists("a.txt"));
  folder.Write("a.txt", "x");
  EXPECT_TRUE(folder.Exists("a.txt"));
}

TEST(TemporaryFolder, ThrowsWhenAFileCannotBeReadOrWritten) {
  const TemporaryFolder folder;
  EXPECT_THROW(folder.Read("missing"), std::ios::failure);
  EXPECT_THROW(folder.Write("no/such/folder", "x"), std::ios::failure);
  EXPECT_THROW(TemporaryFolder(folder.path() + "missing"), std::system_error);
}

TEST(TemporaryFolder, GoesWithAllThatIsInIt) {
  const TemporaryFolder parent(testing::TempDir());
  std::string path;
  {
    const TemporaryFolder folder(parent.path());
    path = folder.path();
    EXPECT_TRUE(path.starts_with(parent.path()));
    EXPECT_TRUE(path.ends_with(SystemPathSeparator()));
    std::filesystem::create_directories(path + "a/b");
    folder.Write("a/b/c", "x");
    EXPECT_TRUE(std::filesystem::exists(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace imptable
