#include "import/ResumeFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "plugin/core/RuntimeFault.h"

namespace imptable {
namespace {

using testing::ElementsAre;

class MemoryFile : public InputFile {
 public:
  explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    const std::size_t count = bytes_.copy(buffer, size);
    bytes_.erase(0, count);
    return count;
  }

 private:
  std::string bytes_;
};

std::unique_ptr<LineReader> ReaderOf(std::string bytes, std::string name) {
  return std::make_unique<LineReader>(std::make_unique<MemoryFile>(std::move(bytes)),
                                      std::move(name), true);
}

/// What a resumed run does with the source lines "s1", "s2", ...: "skip" or the line it takes.
std::vector<std::string> Decisions(const std::string& trace, const std::string& rejected,
                                   std::int32_t lines) {
  ResumeFiles files(std::make_unique<TraceReader>(ReaderOf(trace, "T.TRB"), "T.TRB"),
                    ReaderOf(rejected, "T.LEB"));
  std::vector<std::string> decisions;
  for (std::int32_t number = 1; number <= lines; ++number) {
    const std::string source = "s" + std::to_string(number);
    std::string_view line = source;
    switch (files.Decide(number, line)) {
      case ResumeDecision::kSkip:
        decisions.emplace_back("skip");
        break;
      case ResumeDecision::kTake:
        EXPECT_EQ(line, source);
        [[fallthrough]];
      case ResumeDecision::kReplace:
        decisions.emplace_back(line);
        break;
    }
  }
  return decisions;
}

constexpr const char* kFirstDone = "00000001000000000\n";
constexpr const char* kSecondFailed = "00000002100000001\n";
constexpr const char* kThirdDone = "00000003000000001\n";

TEST(ResumeFiles, SkipsLinesDoneAndReplacesRejectedOnes) {
  EXPECT_THAT(Decisions(std::string(kFirstDone) + kSecondFailed + kThirdDone, "mended\n", 3),
              ElementsAre("skip", "mended", "skip"));
}

TEST(ResumeFiles, TakesTheLinesThatTheTraceDidNotComeTo) {
  EXPECT_THAT(Decisions(std::string(kFirstDone) + kSecondFailed, "mended\n", 4),
              ElementsAre("skip", "mended", "s3", "s4"));
  EXPECT_THAT(Decisions("", "mended\n", 2), ElementsAre("s1", "s2"));
}

TEST(ResumeFiles, TakesANumberThatTheTracePassesOverAsDoneEarlier) {
  EXPECT_THAT(Decisions("00000003100000001\n00000006100000002\n", "m3\nm6\n", 7),
              ElementsAre("skip", "skip", "m3", "skip", "skip", "m6", "s7"));
}

TEST(ResumeFiles, CountsATornLastTraceLineAsAbsent) {
  for (const char* torn : {"0", "00000003", "000000030", "0000000310000000", "00000003100000002"}) {
    EXPECT_THAT(Decisions(std::string(kFirstDone) + kSecondFailed + torn, "m2\nm3\n", 3),
                ElementsAre("skip", "m2", "s3"))
        << torn;
  }
  EXPECT_THAT(Decisions("0000000110", "m1\n", 1), ElementsAre("s1"));
}

TEST(ResumeFiles, TakesTheSourceLineWhenTheRejectedCopyIsExhausted) {
  EXPECT_THAT(Decisions("00000001100000001\n00000002100000002\n00000003100000003\n", "m1\n", 4),
              ElementsAre("m1", "s2", "s3", "s4"));
}

TEST(ResumeFiles, GivesRejectedLinesInOrderEmptyOnesAndATornOneIncluded) {
  EXPECT_THAT(Decisions("00000001100000001\n00000002100000002\n", "\nm2", 2),
              ElementsAre("", "m2"));
}

TEST(ResumeFiles, ReadsATraceWithTheOtherSystemsLineEnds) {
  EXPECT_THAT(Decisions("00000001000000000\r\n00000002100000001\r\n", "m2\r\n", 3),
              ElementsAre("skip", "m2", "s3"));
}

TEST(ResumeFiles, NamesADamagedTraceLine) {
  TraceReader trace(ReaderOf(std::string(kFirstDone) + "0000000x100000001\n" + kThirdDone, "x"),
                    "T.TRB");
  ASSERT_TRUE(trace.Next());
  try {
    trace.Next();
    FAIL() << "the damage was passed over";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kTypeMismatch);
    EXPECT_EQ(fault.detail(), "T.TRB, 2");
  }
}

}  // namespace
}  // namespace imptable
