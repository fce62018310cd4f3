// What other users of the machine can see of a password while the command runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class ProcessList : public testing::Test {
 protected:
  std::vector<std::string> Command(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{IMPTABLE_COMMAND, "--registry", folder.path() + "registry.db",
                                     "--lang", "en"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
  }

  std::string Printed(const std::vector<std::string>& arguments) const {
    ChildProcess process(Command(arguments), ChildProcess::Output::kPipe);
    EXPECT_EQ(process.Finish(), 0) << process.output();
    return process.output();
  }

  /// As `ps` shows it.
  static std::string CommandLineOf(const ChildProcess& process) {
    std::ifstream file("/proc/" + std::to_string(process.id()) + "/cmdline");
    std::string line{std::istreambuf_iterator<char>(file), {}};
    std::replace(line.begin(), line.end(), '\0', ' ');
    return line;
  }

  static auto Shows(const std::string& text) {
    return [text](const std::string& output) { return output.find(text) != std::string::npos; };
  }

  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(ProcessList, HasNoPasswordOfARun) {
  ScriptedDataSource source;
  source.Script(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\nslow SQLExecute 50 ms\n");
  Printed({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
           "Dir=" + folder.path(), "FormatFile=1", "Password=topsecret"});
  std::string lines;
  for (int line = 0; line < 2000; ++line) lines += "1;a\n";
  folder.Write("CLIENTS.CSV", lines);
  ChildProcess run(Command({"run", "S", "T", "--report", folder.path() + "report.txt"}),
                   ChildProcess::Output::kTerminal, {{"TERM", "xterm"}}, 100);
  ASSERT_TRUE(run.ReadUntil(Shows(" read")));
  EXPECT_THAT(CommandLineOf(run), AllOf(HasSubstr(" run S T "), Not(HasSubstr("topsecret"))));
}

TEST_F(ProcessList, LosesTheValuesThatAreGivenOnACommandLine) {
  ChildProcess set(Command({"set", "S", "T", "Password=topsecret", "Owner", "--stdin"}),
                   ChildProcess::Output::kTerminal);
  ASSERT_TRUE(set.ReadUntil(Shows("Owner: ")));
  EXPECT_THAT(CommandLineOf(set),
              AllOf(HasSubstr(" set S T Password=*********"), Not(HasSubstr("topsecret"))));
  set.Type("me\n");
  EXPECT_EQ(set.Finish(), 0);
  EXPECT_EQ(Printed({"get", "S", "T", "Password", "--show-password"}), "topsecret\n");
}

TEST_F(ProcessList, AndTerminalShowNothingOfAPasswordThatIsTyped) {
  ChildProcess set(Command({"set", "S", "T", "Password", "--stdin"}),
                   ChildProcess::Output::kTerminal);
  ASSERT_TRUE(set.ReadUntil(Shows("Password: ")));
  set.Type("topsecret\n");
  EXPECT_EQ(set.Finish(), 0);
  EXPECT_EQ(set.output(), "Password: \r\n");
  EXPECT_EQ(Printed({"get", "S", "T", "Password", "--show-password"}), "topsecret\n");
}

TEST_F(ProcessList, HasATerminalThatShowsWhatIsTypedAgainOnceAPasswordWasInterrupted) {
  std::string line;
  for (const std::string& word : Command({"set", "S", "T", "Password", "--stdin"})) {
    line += "'" + word + "' ";
  }
  ChildProcess shell({"/bin/sh", "-c", line + "; echo code $?; stty -a"},
                     ChildProcess::Output::kTerminal);
  ASSERT_TRUE(shell.ReadUntil(Shows("Password: ")));
  shell.Type("tops\x03");
  EXPECT_EQ(shell.Finish(), 0);
  EXPECT_THAT(shell.output(), AllOf(HasSubstr("imptable: interrupted: nothing was written\r\n"),
                                    HasSubstr("code 130"), HasSubstr(" echo "), HasSubstr("isig"),
                                    Not(HasSubstr("tops"))));
  EXPECT_FALSE(folder.Exists("registry.db"));
}

}  // namespace
}  // namespace imptable
