#include "platform/files/ProfileFile_win32.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/TemporaryFolder.h"
#include "platform/text/TextEncoding.h"

namespace imptable {
namespace {

using namespace std::string_literals;

class ProfileFileOfWindows : public testing::Test {
 protected:
  std::string Read(const std::string& path, std::string_view key, std::size_t most = 254) {
    return system_->ReadString(path, "Table01", key, "<fallback>", most);
  }

  TemporaryFolder folder_;
  std::unique_ptr<ProfileFile> system_ = SystemProfileFile();
};

TEST_F(ProfileFileOfWindows, GivesTheValueOfAKeyOfASection) {
  const std::string path = folder_.Write(
      "CLIENTS.SUP", "[Table00]\r\n01=a\r\n[Table01]\r\n01=CODE,1,9\r\n02= \"b\" \r\n");
  EXPECT_EQ(Read(path, "01"), "CODE,1,9");
  EXPECT_EQ(Read(path, "02"), "b");
  EXPECT_EQ(Read(path, "03"), "<fallback>");
  EXPECT_EQ(system_->ReadString(path, "TABLE00", "01", "", 254), "a");
}

TEST_F(ProfileFileOfWindows, GivesTheFallbackForAFileThatCannotBeRead) {
  EXPECT_EQ(Read(folder_.path() + "none", "01"), "<fallback>");
  EXPECT_EQ(Read(folder_.path(), "01"), "<fallback>") << "a folder";
  EXPECT_EQ(Read(folder_.path() + "none", "01", 4), "<fal");
}

TEST_F(ProfileFileOfWindows, CutsALongValueButNotAShorterOne) {
  const std::string path = folder_.Write("a.SUP", "[Table01]\r\n01=" + std::string(300, 'x'));
  EXPECT_EQ(Read(path, "01", 254), std::string(254, 'x'));
  EXPECT_EQ(Read(path, "01", 300), std::string(300, 'x'));
  EXPECT_EQ(Read(path, "01", 1000), std::string(300, 'x'));
  EXPECT_EQ(Read(path, "01", std::string::npos), std::string(300, 'x'));
  EXPECT_EQ(Read(path, "01", 0), "");
}

TEST_F(ProfileFileOfWindows, LooksForAPlainNameInTheCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  folder_.Write("plain.SUP", "[Table01]\r\n01=a\r\n");
  EXPECT_EQ(Read("plain.SUP", "01"), "a");
  std::filesystem::current_path(before);
}

TEST_F(ProfileFileOfWindows, SeesAChangedFileAtTheNextRead) {
  EXPECT_EQ(Read(folder_.Write("a.SUP", "[Table01]\r\n01=a\r\n"), "01"), "a");
  EXPECT_EQ(Read(folder_.Write("a.SUP", "[Table01]\r\n01=bb\r\n"), "01"), "bb");
}

TEST_F(ProfileFileOfWindows, ReadsWhatTheReaderOfOtherSystemsReads) {
  const auto files = SystemFileSystem();
  const auto encoding = SystemTextEncoding();
  const ProfileFileReader reader(*files, *encoding);
  for (const std::string& bytes : {""s,
                                   "01=before any section\n"s,
                                   "[Table01]\n01=\n"s,
                                   "[Table01]\n01= \t \n"s,
                                   "[Table01]\n01=\"\"\n"s,
                                   "[Table01]\n01=first\n01=second\n"s,
                                   "[Table01]\n02=a\n[Table01]\n01=second\n"s,
                                   "[tAbLe01]\n01=a\n"s,
                                   "[Table011]\n01=a\n"s,
                                   "[Table01]\n1=a\n001=b\n011=c\n"s,
                                   "  [Table01]\n  01=a b\n"s,
                                   "[Table01] \n01=a b\v\f\n"s,
                                   "\t[ Table01\t]\n\t01\t=\ta b\t\n"s,
                                   "[Table01]\n01='a,1,9'\n"s,
                                   "[Table01]\n01= \" a \" \n"s,
                                   "[Table01]\n01=\"\"a\"\"\n"s,
                                   "[Table01]\n01=\"'a'\"\n"s,
                                   "[Table01]\n01=\"a'\n"s,
                                   "[Table01]\n01=\"a\n"s,
                                   "[Table01]\n01=a\"\n"s,
                                   "[Table01]\n01=\"\n"s,
                                   "[Table01]\n01=NOM,'A','M'\n"s,
                                   ";[Table02]\n[Table01]\n;01=no\n  ;01=no\n01=yes\n"s,
                                   "[Table01]\n01=a ; b\n"s,
                                   "[Table01]\n01=;b\n"s,
                                   "[Table01]\r01=a\r02=b"s,
                                   "[Table01]\n01=a"s,
                                   "\r\n\r\n[Table01]\n\n\n01=a\r"s,
                                   "[Table01]\n01=a\x1A"s,
                                   "[Table01] the first\n01=a\n"s,
                                   "[Table01];01=b\n01=a\n"s,
                                   "[Table01]]\n01=a\n"s,
                                   "[Table01\n01=a\n"s,
                                   "[Table01]\n[Table02\n01=a\n"s,
                                   "x [Table01]\n01=a\n"s,
                                   "[Table01]\n01\n"s,
                                   "[Table01]\nwords\n01=a\n"s,
                                   "[Table01]\n01=a=b\n"s,
                                   "[Table01]\n=a\n01=b\n"s,
                                   "[Table01]\n01=" + encoding->FromUtf8("été") + ",1,9\n",
                                   "[Table01]\n01\n01=a\n"s,
                                   "[Table01]\n01=a\n01\n"s,
                                   "[Table01\0x]\n01\0x=\"a\0b\"\n"s,
                                   "[Table01]\n01=\0b\n"s,
                                   "\xEF\xBB\xBF[Table01]\n01=\xC3\xA9\n"s,
                                   "\xFF\xFE[\0T\0a\0b\0l\0e\0"
                                   "0\0"
                                   "1\0]\0\n\0"
                                   "0\0"
                                   "1\0=\0\xE9\0\n\0"s,
                                   "[Table01]\n01=" + std::string(300, 'x') + "\n"}) {
    const std::string path = folder_.Write("CLIENTS.SUP", bytes);
    EXPECT_EQ(Read(path, "01"), reader.ReadString(path, "Table01", "01", "<fallback>", 254))
        << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace imptable
