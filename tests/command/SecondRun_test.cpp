#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <thread>

#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::HasSubstr;

/// Tasks "T" and "U" of scenario "S", which have the same files. Their table takes its time for
/// each line.
class SecondRun : public testing::Test {
 protected:
  SecondRun() {
    source.Script(
        "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\nslow SQLExecute 50 ms\n");
    for (const char* task : {"T", "U"}) {
      Finished({"set", "S", task, "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
                "Dir=" + folder.path(), "FormatFile=1"});
    }
    Lines(2000);
  }

  void Lines(int count) const {
    std::string file;
    for (int line = 0; line < count; ++line) file += "1;a\n";
    folder.Write("CLIENTS.CSV", file);
  }

  std::vector<std::string> Command(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{IMPTABLE_COMMAND, "--registry", folder.path() + "registry.db",
                                     "--lang", "en"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
  }

  struct Ending {
    int code;
    std::string output;
  };
  Ending Finished(const std::vector<std::string>& arguments) const {
    ChildProcess process(Command(arguments), ChildProcess::Output::kPipe);
    const int code = process.Finish();
    return {code, process.output()};
  }

  std::vector<std::string> Run(const std::string& task, const std::string& report) const {
    return {"run", "S", task, "--report", folder.path() + report};
  }

  /// Starts task "T" and waits until it has done a line.
  ChildProcess& Start() {
    first_.emplace(Command(Run("T", "first.txt")), ChildProcess::Output::kPipe);
    for (int tries = 0; tries < 3000; ++tries) {
      if (folder.Exists("CLIENTS.TRC") && !folder.Read("CLIENTS.TRC").empty()) return *first_;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ADD_FAILURE() << "the run does nothing";
    return *first_;
  }

  ScriptedDataSource source;
  TemporaryFolder folder{testing::TempDir()};

 private:
  std::optional<ChildProcess> first_;
};

TEST_F(SecondRun, OfTheSameFilesIsRefusedAndTheFirstOneGoesOn) {
  ChildProcess& first = Start();
  for (const char* task : {"T", "U"}) {
    const Ending second = Finished(Run(task, "second.txt"));
    EXPECT_EQ(second.code, 3);
    EXPECT_EQ(second.output, "imptable: task \"" + std::string(task) + "\": another run (process " +
                                 std::to_string(first.id()) + ") is using its files (lock " +
                                 folder.path() + "CLIENTS.LCK): wait for its end, or stop it\n");
    EXPECT_FALSE(folder.Exists("second.txt"));
  }
  EXPECT_EQ(Finished({"status", "S", "U"}).output, "0\n\n");
  const std::string traced = folder.Read("CLIENTS.TRC");
  EXPECT_GT(traced.size(), 0U);
  kill(first.id(), SIGTERM);
  EXPECT_EQ(first.Finish(), 130);
  EXPECT_TRUE(folder.Read("CLIENTS.TRC").starts_with(traced));
  EXPECT_FALSE(folder.Exists("CLIENTS.LCK"));
}

TEST_F(SecondRun, BeginsWhenTheFirstOneWasKilled) {
  ChildProcess& first = Start();
  kill(first.id(), SIGKILL);
  EXPECT_EQ(first.Finish(), -1);
  Lines(2);
  const Ending second = Finished(Run("T", "second.txt"));
  EXPECT_EQ(second.code, 0) << second.output;
  EXPECT_FALSE(folder.Exists("CLIENTS.LCK"));
}

}  // namespace
}  // namespace imptable
