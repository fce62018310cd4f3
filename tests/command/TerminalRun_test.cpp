#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// What stood in the live line, oldest first. A drawing is whole only when another one, or the
/// line's removal, follows it.
std::vector<std::string> Drawings(const std::string& output) {
  std::vector<std::string> drawings;
  std::size_t start = output.find("\r\x1b[");
  while (start != std::string::npos) {
    start = output.find_first_of("KJ", start);
    const std::size_t end = output.find("\r\x1b[", start);
    if (start == std::string::npos || end == std::string::npos) break;
    const std::string drawing = output.substr(start + 1, end - start - 1);
    start = end;
    drawings.push_back(drawing);
  }
  return drawings;
}

std::size_t Characters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }));
}

/// Task "T" of scenario "S", whose table takes its time for each line.
class TerminalRun : public testing::Test {
 protected:
  void SetUp() override {
    source.Script(
        "column CODE 4 INTEGER 10 0 0\n"
        "column NOM 12 VARCHAR 30 0 1\n"
        "slow SQLExecute 50 ms\n");
    const int code = Quietly({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT",
                              "Alias=CLIENTS", "Dir=" + folder.path(), "FormatFile=1"});
    ASSERT_EQ(code, 0);
  }

  void Lines(int count) {
    std::string file;
    for (int line = 0; line < count; ++line) file += "1;a\n";
    folder.Write("CLIENTS.CSV", file);
  }

  std::vector<std::string> Command(const std::vector<std::string>& arguments,
                                   const std::string& language = "en") const {
    std::vector<std::string> command{IMPTABLE_COMMAND, "--registry", folder.path() + "registry.db",
                                     "--lang", language};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
  }

  int Quietly(const std::vector<std::string>& arguments) const {
    return ChildProcess(Command(arguments), ChildProcess::Output::kPipe).Finish();
  }

  std::vector<std::string> Run(const std::string& language = "en") const {
    return Command({"run", "S", "T", "--report", folder.path() + "report.txt"}, language);
  }

  const ChildProcess::Variables kTerminal{
      {"TERM", "xterm"}, {"LC_ALL", "C.UTF-8"}, {"NO_COLOR", ""}};
  ScriptedDataSource source;
  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(TerminalRun, RedrawsOneLineInPlaceAndRemovesItBeforeTheSummary) {
  Lines(40);
  ChildProcess run(Run("fr"), ChildProcess::Output::kTerminal, kTerminal, 100);
  EXPECT_EQ(run.Finish(), 0);
  const std::string& output = run.output();
  const std::vector<std::string> drawings = Drawings(output);
  EXPECT_GE(drawings.size(), 3U) << output;
  for (const std::string& drawing : drawings) {
    EXPECT_THAT(drawing,
                AllOf(HasSubstr(" lues  "), HasSubstr(" écrites  "), Not(HasSubstr("\n"))));
  }
  EXPECT_THAT(drawings.back(), HasSubstr(" lignes/s  "));
  const std::size_t summary = output.find("Terminé");
  ASSERT_NE(summary, std::string::npos);
  EXPECT_THAT(output.substr(0, summary), testing::EndsWith("\r\x1b[K\x1b[32m"));
  EXPECT_EQ(output.find('\x1b', summary), output.find("\x1b[0m", summary));
  EXPECT_EQ(output.find("\r\x1b[", summary), std::string::npos);
  EXPECT_EQ(output.substr(0, summary).find('\n'), std::string::npos);
}

TEST_F(TerminalRun, FollowsTheWidthOfTheTerminalUntilInterrupted) {
  Lines(2000);
  ChildProcess run(Run(), ChildProcess::Output::kTerminal, kTerminal, 100);
  const auto ends_wide = [](const std::string& output) {
    const std::vector<std::string> drawings = Drawings(output);
    return !drawings.empty() && drawings.back().find("lines/s") != std::string::npos;
  };
  ASSERT_TRUE(run.ReadUntil(ends_wide)) << run.output();
  run.Resize(12);
  const auto ends_narrow = [](const std::string& output) {
    const std::vector<std::string> drawings = Drawings(output);
    return !drawings.empty() && Characters(drawings.back()) == 12;
  };
  ASSERT_TRUE(run.ReadUntil(ends_narrow)) << run.output();
  // The terminal has wrapped the wide line by then: all its rows are erased.
  EXPECT_THAT(run.output(), testing::ContainsRegex("\r\x1b\\[[3-6]A\x1b\\[J"));
  run.Resize(100);
  ASSERT_TRUE(run.ReadUntil(ends_wide)) << run.output();
  run.Type("\x03");
  EXPECT_EQ(run.Finish(), 130);
  EXPECT_THAT(run.output(), HasSubstr("Interrupted"));
}

TEST_F(TerminalRun, UsesNoColourWhenAskedNotTo) {
  Lines(1);
  ChildProcess::Variables variables = kTerminal;
  variables.back() = {"NO_COLOR", "1"};
  ChildProcess run(Run(), ChildProcess::Output::kTerminal, variables, 100);
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.output(), AllOf(HasSubstr("\r\x1b[K0 read"), HasSubstr("Done: scenario S"),
                                  Not(testing::ContainsRegex("\x1b\\[[0-9;]*m"))));
}

TEST_F(TerminalRun, PrintsNothingThatMovesOnATerminalWithoutAbilities) {
  Lines(1);
  ChildProcess::Variables variables = kTerminal;
  variables.front() = {"TERM", "dumb"};
  ChildProcess run(Run(), ChildProcess::Output::kTerminal, variables);
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.output(), AllOf(testing::StartsWith("Done: scenario S"), Not(HasSubstr("\x1b"))));
}

TEST_F(TerminalRun, PrintsTheSummaryAloneIntoAPipe) {
  Lines(20);
  ChildProcess run(Run(), ChildProcess::Output::kPipe, kTerminal);
  EXPECT_EQ(run.Finish(), 0);
  EXPECT_THAT(run.output(), AllOf(testing::StartsWith("Done: scenario S"), Not(HasSubstr("\x1b")),
                                  Not(HasSubstr("\r"))));
}

}  // namespace
}  // namespace imptable
