#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"
#include "platform/text/Utf8Encoding.h"

namespace imptable {
namespace {

using namespace std::string_view_literals;

class ProfileSections : public testing::Test {
 protected:
  /// The value of "01" in "Table01" of a file with these bytes; "<fallback>" when it has none.
  std::string Read(std::string_view bytes, std::size_t most = 254) {
    return ReadKey(bytes, "Table01", "01", most);
  }

  std::string ReadKey(std::string_view bytes, std::string_view section, std::string_view key,
                      std::size_t most = 254) {
    path_ = folder_.Write("CLIENTS.SUP", bytes);
    return reader_.ReadString(path_, section, key, "<fallback>", most);
  }

  TemporaryFolder folder_;
  std::unique_ptr<FileSystem> system_ = SystemFileSystem();
  FaultyFileSystem files_{*system_};
  Utf8Encoding utf8_;
  ProfileFileReader reader_{files_, utf8_};
  std::string path_ = folder_.path() + "CLIENTS.SUP";
};

TEST_F(ProfileSections, GivesTheValueOfAKeyOfASection) {
  constexpr std::string_view kFile =
      "[Table01]\n01=CODE,1,9\n02=NOM,A,M\n\n[Table03]\n01=DATE_CDE,2006-01-01,2006-06-30\n";
  EXPECT_EQ(ReadKey(kFile, "Table01", "01"), "CODE,1,9");
  EXPECT_EQ(ReadKey(kFile, "Table01", "02"), "NOM,A,M");
  EXPECT_EQ(ReadKey(kFile, "Table03", "01"), "DATE_CDE,2006-01-01,2006-06-30");
}

TEST_F(ProfileSections, GivesTheFallbackForWhatIsNotThere) {
  constexpr std::string_view kFile = "[Table01]\n01=a\n[Table02]\n02=b\n";
  EXPECT_EQ(ReadKey(kFile, "Table04", "01"), "<fallback>");
  EXPECT_EQ(ReadKey(kFile, "Table01", "02"), "<fallback>") << "a key of another section";
  EXPECT_EQ(ReadKey("", "Table01", "01"), "<fallback>");
  EXPECT_EQ(ReadKey("01=before any section\n", "Table01", "01"), "<fallback>");
  EXPECT_EQ(ReadKey("01=before any section\n", "", "01"), "<fallback>");
}

TEST_F(ProfileSections, TellsTheFallbackFromAnEmptyValue) {
  EXPECT_EQ(Read("[Table01]\n01=\n"), "");
  EXPECT_EQ(Read("[Table01]\n01= \t \n"), "");
  EXPECT_EQ(Read("[Table01]\n01=\"\"\n"), "");
}

TEST_F(ProfileSections, TakesTheFirstSectionAndTheFirstKeyOfAName) {
  EXPECT_EQ(Read("[Table01]\n01=first\n01=second\n"), "first");
  EXPECT_EQ(Read("[Table01]\n01=first\n[Table02]\n[Table01]\n01=second\n"), "first");
  EXPECT_EQ(Read("[Table01]\n02=a\n[Table01]\n01=second\n"), "<fallback>")
      << "the second section of the name is never looked into";
}

TEST_F(ProfileSections, MatchesNamesWithoutRegardToCase) {
  EXPECT_EQ(ReadKey("[TABLE01]\nclé=a\n", "table01", "CLÉ"), "a");
  EXPECT_EQ(ReadKey("[tAbLe01]\nKey=a\n", "Table01", "kEY"), "a");
}

TEST_F(ProfileSections, MatchesNamesOfAnyCodePage) {
  const Latin1TextEncoding latin1;
  const ProfileFileReader reader(files_, latin1);
  const std::string path = folder_.Write("LATIN1.SUP", "[T\xE9l\xE9]\n01=\xE9\n");
  EXPECT_EQ(reader.ReadString(path, "T\xC9L\xC9", "01", "<fallback>", 254), "\xE9");
}

TEST_F(ProfileSections, MatchesWholeNamesOnly) {
  EXPECT_EQ(Read("[Table011]\n01=a\n"), "<fallback>");
  EXPECT_EQ(Read("[Table0]\n01=a\n"), "<fallback>");
  EXPECT_EQ(Read("[Table01]\n1=a\n001=b\n011=c\n"), "<fallback>");
}

TEST_F(ProfileSections, IgnoresBlanksAndTabsAroundNamesAndValues) {
  for (const char* file : {"[Table01]\n01 = a b \n", "  [Table01]\n  01=a b\n",
                           "\t[ Table01\t]\n\t01\t=\ta b\t\n", "[Table01] \n01=a b\v\f\n"}) {
    EXPECT_EQ(Read(file), "a b") << file;
  }
  EXPECT_EQ(ReadKey("[Table01]\n01=a\n", " Table01\t",
                    "\x1A"
                    "01 "),
            "a")
      << "those asked for, too";
}

TEST_F(ProfileSections, RemovesOnePairOfQuotesThatEnclosesTheValue) {
  struct Case {
    const char *written, *read;
  };
  for (const Case& each : {Case{"\"a,1,9\"", "a,1,9"},
                           {"'a,1,9'", "a,1,9"},
                           {" \" a \" ", " a "},
                           {"\"\"a\"\"", "\"a\""},
                           {"\"'a'\"", "'a'"},
                           {"\"a'", "\"a'"},
                           {"\"a", "\"a"},
                           {"a\"", "a\""},
                           {"\"", "\""},
                           {"a\"b\"c", "a\"b\"c"},
                           {"NOM,'A','M'", "NOM,'A','M'"}}) {
    EXPECT_EQ(Read("[Table01]\n01=" + std::string(each.written) + "\n"), each.read) << each.written;
  }
}

TEST_F(ProfileSections, TakesLinesThatBeginWithASemicolonForComments) {
  EXPECT_EQ(Read(";[Table02]\n[Table01]\n;01=no\n  ;01=no\n01=yes\n"), "yes");
  EXPECT_EQ(Read("[Table01]\n;[Table02]\n01=yes\n"), "yes");
  EXPECT_EQ(ReadKey("[Table01]\n;01=no\n", "Table01", ";01"), "<fallback>");
  EXPECT_EQ(Read("[Table01]\n01=a ; b\n"), "a ; b") << "only at the start of a line";
  EXPECT_EQ(Read("[Table01]\n01=;b\n"), ";b");
  EXPECT_EQ(ReadKey("[Table01]\n#01=a\n", "Table01", "#01"), "a") << "# begins no comment";
}

TEST_F(ProfileSections, ReadsEachKindOfLineEndAndALastLineWithoutOne) {
  EXPECT_EQ(Read("[Table01]\r\n01=a\r\n02=b\r\n"), "a");
  EXPECT_EQ(Read("[Table01]\r01=a\r02=b"), "a");
  EXPECT_EQ(Read("[Table01]\n01=a"), "a");
  EXPECT_EQ(Read("\r\n\r\n[Table01]\n\n\n01=a\r"), "a");
  EXPECT_EQ(ReadKey("[Table01]\r\n01=a\r02=b", "Table01", "02"), "b");
}

TEST_F(ProfileSections, ReadsPastTheEndOfFileMarkOfOldEditors) {
  EXPECT_EQ(Read("[Table01]\n01=a\x1A"), "a");
}

TEST_F(ProfileSections, ReadsTheEncodingThatTheFirstBytesTell) {
  const Latin1TextEncoding latin1;
  const ProfileFileReader reader(files_, latin1);
  for (const std::string_view file : {"\xEF\xBB\xBF[T]\n1=\u00e9\n"sv,
                                      "\xFF\xFE[\0T\0]\0\n\0"
                                      "1\0=\0\xE9\0\n\0"sv,
                                      "\xFE\xFF\0[\0T\0]\0\n\0"
                                      "1\0=\0\xE9\0\n"sv}) {
    EXPECT_EQ(ReadKey(file, "T", "1"), "\u00e9") << file;
    EXPECT_EQ(reader.ReadString(path_, "T", "1", "<fallback>", 254), "\xE9") << file;
  }
}

TEST_F(ProfileSections, TakesWhateverFollowsTheLastBracketOfASectionLineForNothing) {
  EXPECT_EQ(Read("[Table01] the first\n01=a\n"), "a");
  EXPECT_EQ(Read("[Table01];01=b\n01=a\n"), "a");
  EXPECT_EQ(Read("[Table01]]\n01=a\n"), "<fallback>");
  EXPECT_EQ(ReadKey("[a]b]\n01=a\n", "a]b", "01"), "a");
}

TEST_F(ProfileSections, TakesALineWithAnOpeningBracketAloneForNoSection) {
  EXPECT_EQ(Read("[Table01\n01=a\n"), "<fallback>");
  EXPECT_EQ(Read("[Table01]\n[Table02\n01=a\n"), "a");
  EXPECT_EQ(ReadKey("[Table01]\n[x=a\n", "Table01", "[x"), "a");
  EXPECT_EQ(Read("x [Table01]\n01=a\n"), "<fallback>") << "a bracket within a line";
}

TEST_F(ProfileSections, PassesOverLinesWithoutAnEqualsSign) {
  EXPECT_EQ(Read("[Table01]\n01\n"), "<fallback>");
  EXPECT_EQ(Read("[Table01]\nwords\n01=a\n"), "a");
}

TEST_F(ProfileSections, TakesALineOfTheKeyAloneForAKeyWithoutAValue) {
  EXPECT_EQ(Read("[Table01]\n01\n01=a\n"), "<fallback>");
  EXPECT_EQ(Read("[Table01]\n01=a\n01\n"), "a");
}

TEST_F(ProfileSections, EndsNamesAndValuesAtANul) {
  EXPECT_EQ(Read("[Table01\0x]\n01\0x=\"a\0b\"\n"sv), "\"a");
  EXPECT_EQ(Read("[Table01]\n01=\0b\n"sv), "");
}

TEST_F(ProfileSections, PartsKeyAndValueAtTheFirstEqualsSign) {
  EXPECT_EQ(Read("[Table01]\n01=a=b\n"), "a=b");
  EXPECT_EQ(Read("[Table01]\n=a\n01=b\n"), "b");
}

TEST_F(ProfileSections, CutsALongValueButNotAShorterOne) {
  const std::string file = "[Table01]\n01=" + std::string(300, 'x') + "\n";
  EXPECT_EQ(Read(file, 254), std::string(254, 'x'));
  EXPECT_EQ(Read(file, 300), std::string(300, 'x'));
  EXPECT_EQ(Read("[Table01]\n01=\"" + std::string(254, 'x') + "\"\n", 254), std::string(254, 'x'));
  EXPECT_EQ(ReadKey("", "Table01", "01", 4), "<fal") << "the fallback is cut too";
}

TEST_F(ProfileSections, ReadsAFileLargerThanOneBlock) {
  std::string file = "[Table00]\n";
  while (file.size() < 20'000) file += "key=" + std::string(100, 'x') + "\n";
  EXPECT_EQ(Read(file + "[Table01]\n01=a\n"), "a");
}

TEST_F(ProfileSections, KeepsBytesThatAreNoCharacters) {
  EXPECT_EQ(Read("[Table01]\n01=\xE9t\xE9,1,9\n"), "\xE9t\xE9,1,9");
}

TEST_F(ProfileSections, GivesTheFallbackForAFileThatIsNotThere) {
  EXPECT_EQ(reader_.ReadString(folder_.path() + "none", "Table01", "01", "Non", 254), "Non");
  EXPECT_EQ(reader_.ReadString(path_ + "/none", "Table01", "01", "Non", 254), "Non");
}

TEST_F(ProfileSections, DoesNotTakeAFileThatCannotBeReadForOneWithoutTheKey) {
  const auto error_of = [this](const std::string& path) {
    try {
      reader_.ReadString(path, "Table01", "01", "Non", 254);
    } catch (const std::system_error& error) {
      return error.code();
    }
    return std::error_code();
  };
  EXPECT_TRUE(error_of(folder_.path())) << "a directory";
  folder_.Write("CLIENTS.SUP", "[Table01]\n01=a\n");
  const std::error_code denied = std::make_error_code(std::errc::permission_denied);
  files_.Fail(FileOperation::kOpenRead, 1, denied);
  EXPECT_EQ(error_of(path_), denied);
  const std::error_code broken = std::make_error_code(std::errc::io_error);
  files_.Fail(FileOperation::kRead, 2, broken);
  EXPECT_EQ(error_of(path_), broken) << "its end can't be read";
  EXPECT_FALSE(error_of(path_));
}

TEST_F(ProfileSections, SeesAChangedFileAtTheNextRead) {
  EXPECT_EQ(Read("[Table01]\n01=a\n"), "a");
  EXPECT_EQ(Read("[Table01]\n01=b\n"), "b");
}

}  // namespace
}  // namespace imptable
