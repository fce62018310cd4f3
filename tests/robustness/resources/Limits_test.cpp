#include <gmock/gmock.h>
#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"

namespace imptable {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20U;

/// What the system's own loader says before the command comes to anything.
bool CouldNotBeLoaded(const Ending& ending) {
  return ending.code == 127 &&
         ending.err.find("error while loading shared libraries") != std::string::npos;
}

/// The command's one line of error.
void ExpectOneLine(const Ending& ending) {
  EXPECT_THAT(ending.code, AnyOf(1, 3, 4)) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: "));
  EXPECT_EQ(std::count(ending.err.begin(), ending.err.end(), '\n'), 1) << ending.err;
}

Ending RunWith(const CountedTask& task, int resource, std::uint64_t most) {
  Invocation run = task.RunCommand();
  run.limits[resource] = most;
  return Finish(run);
}

/// Sends the command's output through a pipe, which has no limit.
Ending RunWithFilesUpTo(const CountedTask& task, std::uint64_t most) {
  Invocation run = task.RunCommand({"--quiet"});
  const std::string limited = "prlimit --fsize=" + std::to_string(most) + " \"$@\" 2>&1 | cat";
  run.words.insert(run.words.begin(), {"bash", "-o", "pipefail", "-c", limited, "bash"});
  Ending ending = Finish(run);
  ending.err += ending.out;
  return ending;
}

/// A file may have about so many bytes. The file that grows fastest stops there, at each byte of
/// one of its lines in turn. The registry stays smaller, and the database is a server's, which has
/// no such limit.
constexpr std::uint64_t kMostBytes = 40000;

struct GrowingFile {
  std::string extension;
  SourceKind source;
  int lines;             // enough for the file to become longer
  std::uint64_t period;  // bytes of one of its lines, or more
};

class FileSizes : public testing::TestWithParam<GrowingFile> {};

TEST_P(FileSizes, StopTheRunAtEachByteOfALineAndAResumeLosesNothing) {
  const auto& [extension, source, lines, period] = GetParam();
  const CountedTask task(DatabaseKind::kPostgresql);
  const std::uint64_t step = InLongForm() ? 1 : period / 3;
  int cut = 0;
  for (std::uint64_t at = 0; at < period && !HasFailure(); at += step) {
    SCOPED_TRACE(kMostBytes + at);
    task.StartOver();
    task.Source(SourceText(source, lines));
    const Ending ending = RunWithFilesUpTo(task, kMostBytes + at);
    EXPECT_EQ(ending.code, 1) << Shown(ending);
    ExpectOneLine(ending);
    EXPECT_THAT(ending.err, HasSubstr("Disk full : " + task.RunFolder() + "CLIENTS" + extension));
    EXPECT_THAT(task.Report(), HasSubstr("N° 61 ,"));
    EXPECT_EQ(std::filesystem::file_size(task.RunFolder() + "CLIENTS" + extension),
              kMostBytes + at);
    task.CompleteAndCheck(lines, 1);
    ++cut;
  }
  Figure("a file-size limit that stops " + extension + ": at " + std::to_string(cut) + " of " +
         std::to_string(period) + " bytes");
}

INSTANTIATE_TEST_SUITE_P(OfEachFile, FileSizes,
                         testing::Values(GrowingFile{".TRC", SourceKind::kGood, 2300, 18},
                                         GrowingFile{".ERR", SourceKind::kRefused, 900, 240},
                                         GrowingFile{".LER", SourceKind::kLongBad, 450, 310}),
                         [](const auto& each) { return each.param.extension.substr(1); });

TEST(OpenFiles, AreTooFewUntilTheRunWorksAndEachTimeItSaysSo) {
  constexpr int kLines = 200;
  const CountedTask task(DatabaseKind::kSqlite);
  std::uint64_t most = 3;
  for (;; ++most) {
    SCOPED_TRACE(most);
    ASSERT_LT(most, 1000U);
    task.StartOver();
    task.Source(SourceText(SourceKind::kGood, kLines));
    const Ending ending = RunWith(task, RLIMIT_NOFILE, most);
    if (ending.code == 0) break;
    if (!CouldNotBeLoaded(ending)) ExpectOneLine(ending);
    task.CompleteAndCheck(kLines, 1);
    if (testing::Test::HasFailure()) break;
  }
  Figure("open files: 3 to " + std::to_string(most));
  EXPECT_GT(most, 4U);
}

TEST(Memory, IsTooLittleForALongLineAndTheRunSaysSoAndIsResumed) {
  const CountedTask task(DatabaseKind::kSqlite);
  const std::string source =
      "1;one\n2;two\n3;" + std::string(40 * kMebibyte, 'x') + "\n4;four\n5;five\n";
  const std::uint64_t step = (InLongForm() ? 2 : 24) * kMebibyte;
  int faults = 0;
  for (std::uint64_t most = 16 * kMebibyte;; most += step) {
    SCOPED_TRACE(most / kMebibyte);
    ASSERT_LT(most, 2048 * kMebibyte);
    task.StartOver();
    task.Source(source);
    const Ending ending = RunWith(task, RLIMIT_AS, most);
    if (ending.code == 0) break;
    if (!CouldNotBeLoaded(ending)) {
      ExpectOneLine(ending);
      ++faults;
    }
    task.CompleteAndCheck(5, 1);
    if (testing::Test::HasFailure()) break;
  }
  Figure("too little memory for a line: " + std::to_string(faults) + " limits");
  EXPECT_GT(faults, 0);
}

}  // namespace
}  // namespace imptable
