#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files/FileSystem.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class LocatedFiles : public testing::Test {
 protected:
  /// What is found for a name in the folder, without the folder.
  std::string Locate(const std::string& name) const {
    const std::string path = files_->Locate(folder_.path() + name);
    EXPECT_TRUE(path.starts_with(folder_.path())) << path;
    return path.substr(folder_.path().size());
  }

  TemporaryFolder folder_{testing::TempDir()};
  std::unique_ptr<FileSystem> files_ = SystemFileSystem();
};

TEST_F(LocatedFiles, FindsANameThatDiffersInCase) {
  folder_.Write("Data.TXT", "");
  folder_.Write("Data.TXT2", "");
  EXPECT_EQ(Locate("dATA.txt"), "Data.TXT");
}

TEST_F(LocatedFiles, FindsANameWhoseAccentedLettersDifferInCase) {
  folder_.Write("\u00c9T\u00c9.txt", "");
  EXPECT_EQ(Locate("\u00e9t\u00e9.TXT"), "\u00c9T\u00c9.txt");
  EXPECT_EQ(Locate("ETE.txt"), "ETE.txt") << "an accent is more than case";
}

TEST_F(LocatedFiles, PrefersTheExactName) {
  folder_.Write("DATA.txt", "");
  folder_.Write("data.txt", "");
  EXPECT_EQ(Locate("data.txt"), "data.txt");
  EXPECT_EQ(Locate("DATA.txt"), "DATA.txt");
}

TEST_F(LocatedFiles, TakesTheFirstInAlphabeticalOrderOfSeveral) {
  for (const char* name : {"dATA", "Data", "dAta", "dATa"}) folder_.Write(name, "");
  EXPECT_EQ(Locate("data"), "Data");
  EXPECT_EQ(Locate("DATA"), "Data");
}

TEST_F(LocatedFiles, LeavesANameThatIsNotThereAsItIs) {
  folder_.Write("data.txt", "");
  EXPECT_EQ(Locate("Other.txt"), "Other.txt");
  EXPECT_EQ(Locate("data"), "data");
  EXPECT_EQ(Locate("no/such/Data.txt"), "no/such/Data.txt");
  EXPECT_EQ(Locate("data.txt/x"), "data.txt/x") << "not in a directory";
  EXPECT_EQ(Locate(""), "");
  EXPECT_EQ(files_->Locate(""), "");
}

TEST_F(LocatedFiles, TakesTheDirectoryAsItStands) {
  std::filesystem::create_directory(folder_.path() + "Sub");
  folder_.Write("Sub/data.txt", "");
  EXPECT_EQ(Locate("Sub/DATA.txt"), "Sub/data.txt");
  EXPECT_EQ(Locate("sub/data.txt"), "sub/data.txt");
}

TEST_F(LocatedFiles, HandlesNamesThatAreNoValidUtf8) {
  folder_.Write("\xe9t\xe9.TXT", "");
  EXPECT_EQ(Locate("\xe9T\xe9.txt"), "\xe9t\xe9.TXT");
  EXPECT_EQ(Locate("\xc9t\xc9.TXT"), "\xc9t\xc9.TXT") << "other bytes, so another name";
}

TEST_F(LocatedFiles, LooksUpAPlainNameInTheCurrentDirectory) {
  class CurrentDirectory {
   public:
    explicit CurrentDirectory(const std::string& path) { std::filesystem::current_path(path); }
    ~CurrentDirectory() { std::filesystem::current_path(before_); }

   private:
    std::filesystem::path before_ = std::filesystem::current_path();
  };
  folder_.Write("data.txt", "");
  const CurrentDirectory current(folder_.path());
  EXPECT_EQ(files_->Locate("DATA.txt"), "data.txt");
  EXPECT_EQ(files_->Locate("other"), "other");
}

TEST_F(LocatedFiles, LooksInTheRootDirectory) { EXPECT_EQ(files_->Locate("/DEV"), "/dev"); }

}  // namespace
}  // namespace imptable
