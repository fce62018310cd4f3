#include "import/source/LineReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "core/RuntimeFault.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kBlock = std::size_t{256} << 10U;
constexpr std::size_t kWhole = std::numeric_limits<std::size_t>::max();

/// A file in memory that gives at most `most` bytes at once.
class PiecewiseFile : public InputFile {
 public:
  PiecewiseFile(std::string bytes, std::size_t most) : bytes_(std::move(bytes)), most_(most) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    const std::size_t count = std::min({size, most_, bytes_.size() - at_});
    std::memcpy(buffer, bytes_.data() + at_, count);
    at_ += count;
    return count;
  }

 private:
  std::string bytes_;
  std::size_t most_;
  std::size_t at_ = 0;
};

/// A file of one line that never ends.
class EndlessFile : public InputFile {
 public:
  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    std::memset(buffer, 'x', size);
    return size;
  }
};

LineReader ReaderOf(std::string bytes, std::size_t most = kWhole, bool skip_mark = true) {
  return LineReader(std::make_unique<PiecewiseFile>(std::move(bytes), most), "file", skip_mark);
}

std::vector<std::string> LinesOf(LineReader reader) {
  std::vector<std::string> lines;
  for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
  return lines;
}

TEST(LineReader, EndsLinesWithEachLineEndAndAnyMixOfThem) {
  EXPECT_THAT(LinesOf(ReaderOf("a\nb\n")), ElementsAre("a", "b"));
  EXPECT_THAT(LinesOf(ReaderOf("a\r\nb\r\n")), ElementsAre("a", "b"));
  EXPECT_THAT(LinesOf(ReaderOf("a\rb\r")), ElementsAre("a", "b"));
  EXPECT_THAT(LinesOf(ReaderOf("a\r\nb\rc\nd\r\n\re\n\rf\n\ng\r\rh")),
              ElementsAre("a", "b", "c", "d", "", "e", "", "f", "", "g", "", "h"));
}

TEST(LineReader, ReadsTheSameLinesInPiecesOfAnySize) {
  const std::string bytes =
      "\xEF\xBB\xBF"
      "a\r\nb\rc\nd\r\n\re\n\rf\n\ng\r\rlonger line\r\n\r\nend\r";
  for (std::size_t most = 1; most <= bytes.size(); ++most) {
    EXPECT_THAT(LinesOf(ReaderOf(bytes, most)), ElementsAre("a", "b", "c", "d", "", "e", "", "f",
                                                            "", "g", "", "longer line", "", "end"))
        << most;
  }
}

TEST(LineReader, GivesNoLineForAnEmptyFileAndOneForALoneLineEnd) {
  EXPECT_THAT(LinesOf(ReaderOf("")), IsEmpty());
  EXPECT_THAT(LinesOf(ReaderOf("\n")), ElementsAre(""));
  EXPECT_THAT(LinesOf(ReaderOf("\r\n")), ElementsAre(""));
  EXPECT_THAT(LinesOf(ReaderOf("\r")), ElementsAre(""));
}

TEST(LineReader, KnowsAFileWithoutALine) {
  TemporaryFolder folder{testing::TempDir()};
  const auto files = SystemFileSystem();
  const auto has_none = [&](const std::string& text, bool skip_mark) {
    folder.Write("f", text);
    return HasNoLine(*files, folder.path() + "f", text.size(), skip_mark);
  };
  EXPECT_TRUE(has_none("", false));
  EXPECT_TRUE(has_none("\xEF\xBB\xBF", true));
  EXPECT_FALSE(has_none("\xEF\xBB\xBF", false)) << "in another code page it is text";
  EXPECT_FALSE(has_none("a;b", true));
  EXPECT_FALSE(has_none("\n", true));
}

TEST(LineReader, TakesALastLineWithoutAnEndAndSaysSo) {
  LineReader reader = ReaderOf("a\r\nb");
  std::string_view line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line, "a");
  EXPECT_TRUE(reader.ended());
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line, "b");
  EXPECT_FALSE(reader.ended());
  EXPECT_FALSE(reader.Next(line));
  EXPECT_FALSE(reader.Next(line));
}

TEST(LineReader, SaysThatALastLineEndedWithACarriageReturnHasItsEnd) {
  LineReader reader = ReaderOf("a\r");
  std::string_view line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(line, "a");
  EXPECT_TRUE(reader.ended());
  EXPECT_FALSE(reader.Next(line));
}

TEST(LineReader, SkipsAByteOrderMarkAtTheStartOfAUtf8FileOnly) {
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB\xBF"
                               "a\n\xEF\xBB\xBF"
                               "b\n")),
              ElementsAre("a",
                          "\xEF\xBB\xBF"
                          "b"));
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB\xBF")), IsEmpty());
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB\xBF\n")), ElementsAre(""));
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB")), ElementsAre("\xEF\xBB"));
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB\n", 1)), ElementsAre("\xEF\xBB"));
  EXPECT_THAT(LinesOf(ReaderOf("\n\xEF\xBB\xBF"
                               "a")),
              ElementsAre("",
                          "\xEF\xBB\xBF"
                          "a"));
}

TEST(LineReader, KeepsThoseBytesInASingleByteCodePage) {
  EXPECT_THAT(LinesOf(ReaderOf("\xEF\xBB\xBF"
                               "a\n",
                               kWhole, false)),
              ElementsAre("\xEF\xBB\xBF"
                          "a"));
}

TEST(LineReader, PassesNulBytesOn) {
  const std::string bytes("a\0b\n\0\nc\0", 8);
  EXPECT_THAT(LinesOf(ReaderOf(bytes)),
              ElementsAre(std::string("a\0b", 3), std::string("\0", 1), std::string("c\0", 2)));
}

TEST(LineReader, FindsLineEndsAroundEachBlockBoundary) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    for (std::size_t length = kBlock - 4; length <= kBlock + 4; ++length) {
      const std::string first(length, 'x');
      const std::string bytes = first + end + end + "last" + end;
      EXPECT_TRUE(LinesOf(ReaderOf(bytes)) == (std::vector<std::string>{first, "", "last"}))
          << length << " with an end of " << end.size();
    }
  }
}

TEST(LineReader, FindsALineEndAtTheBoundaryOfALaterBlock) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    for (std::size_t rest = kBlock - 4; rest <= kBlock + 4; ++rest) {
      const std::string second(rest, 'y');
      const std::string bytes = "short" + end + second + end + "last";
      EXPECT_TRUE(LinesOf(ReaderOf(bytes)) == (std::vector<std::string>{"short", second, "last"}))
          << rest << " with an end of " << end.size();
    }
  }
}

TEST(LineReader, HoldsLinesOfSeveralBlocks) {
  const std::string longest(5 * kBlock + 17, 'x');
  EXPECT_TRUE(LinesOf(ReaderOf("a\r\n" + longest + "\r\nb\r\n" + longest)) ==
              (std::vector<std::string>{"a", longest, "b", longest}));
  EXPECT_TRUE(LinesOf(ReaderOf(longest + "\rb", 10'000)) ==
              (std::vector<std::string>{longest, "b"}));
}

TEST(LineReader, CountsTheBytesThatTheLinesTook) {
  LineReader reader = ReaderOf(
      "\xEF\xBB\xBF"
      "ab\r\nc\nd");
  std::string_view line;
  EXPECT_EQ(reader.bytes_taken(), 0U);
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(reader.bytes_taken(), 7U);
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(reader.bytes_taken(), 9U);
  ASSERT_TRUE(reader.Next(line));
  EXPECT_EQ(reader.bytes_taken(), 10U);
}

TEST(LineReader, RefusesALineBeyondTheLimit) {
  LineReader reader(std::make_unique<EndlessFile>(), "endless", false);
  std::string_view line;
  try {
    reader.Next(line);
    FAIL() << "the line was taken";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kOutOfMemory);
    EXPECT_EQ(fault.detail(), "endless");
  }
}

TEST(LineReader, TellsAReadErrorInMidFileAfterTheLinesBeforeIt) {
  const TemporaryFolder folder(testing::TempDir());
  const std::string first(kBlock - 1, 'x');
  const std::string path = folder.Write("data.csv", first + "\nsecond\n");
  const auto real = SystemFileSystem();
  FaultyFileSystem files(*real);
  files.Fail(FileOperation::kRead, 2, std::make_error_code(std::errc::io_error));
  std::error_code error;
  LineReader reader(files.OpenForReading(path, error), path, true);
  std::string_view line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_TRUE(line == first);
  try {
    reader.Next(line);
    FAIL() << "the error passed for the end of the file";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kDeviceError);
    EXPECT_EQ(fault.detail(), path);
  }
}

}  // namespace
}  // namespace imptable
