#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "tests/scenarios/Advice.h"
#include "tests/scenarios/ClientTask.h"

namespace imptable {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

constexpr int kLines = 20000;
constexpr int kTracedEnough = 500;
constexpr std::uintmax_t kTraceLineBytes = 18;

/// Starts a run, and waits until it has done some lines.
class StartedRun {
 public:
  explicit StartedRun(const ClientTask& task) : process_(task.RunCommand()) {
    const std::string trace = task.RunFolder() + "CLIENTS.TRC";
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    std::error_code missing;
    std::uintmax_t bytes = 0;
    while (process_.Running() && std::chrono::steady_clock::now() < end &&
           bytes < kTracedEnough * kTraceLineBytes) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      bytes = std::filesystem::file_size(trace, missing);
      if (missing) bytes = 0;
    }
  }

  Ending End(int signal) {
    EXPECT_TRUE(process_.Running()) << "it was done before it could be interrupted";
    process_.Signal(signal);
    return process_.Wait();
  }

 private:
  ChildProcess process_;
};

std::string AllLines() { return ClientLines(1, kLines); }
/// The first line has no name, so there is a rejected line from the start.
std::string AllLinesButTheFirst() { return "1;\n" + ClientLines(2, kLines); }

constexpr const char* kCounts =
    "SELECT COUNT(*), COUNT(DISTINCT code), MIN(code), MAX(code) FROM client";

std::string EveryLineOnce() {
  const std::string count = std::to_string(kLines);
  return count + '|' + count + "|1|" + count + '\n';
}

class Interruption : public testing::TestWithParam<int> {};

TEST_P(Interruption, FinishesTheLineAndAResumeGoesOnFromThere) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source(AllLinesButTheFirst());
  const Ending ending = StartedRun(task).End(GetParam());
  EXPECT_EQ(ending.code, 130) << ending.err;
  EXPECT_TRUE(ending.err.starts_with("imptable: ")) << ending.err;
  EXPECT_EQ(task.Read("CLIENTS.LER"), "1;\n");
  const std::string trace = task.Read("CLIENTS.TRC");
  EXPECT_TRUE(trace.ends_with('\n'));
  const auto traced = std::count(trace.begin(), trace.end(), '\n');
  EXPECT_LT(traced, kLines);
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), std::to_string(traced - 1) + '\n');

  task.Write("CLIENTS.LER", "1;name 1\n");
  const Ending resumed = task.Run({"--resume"});
  EXPECT_EQ(resumed.code, 0) << resumed.err;
  EXPECT_EQ(task.Rows(kCounts), EveryLineOnce());
}

INSTANTIATE_TEST_SUITE_P(Signals, Interruption, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& each) {
                           return std::string(each.param == SIGINT    ? "SIGINT"
                                              : each.param == SIGTERM ? "SIGTERM"
                                                                      : "SIGHUP");
                         });

TEST(Killing, LosesNoLineForAResume) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source(AllLinesButTheFirst());
  EXPECT_EQ(StartedRun(task).End(SIGKILL).code, 128 + SIGKILL);
  EXPECT_EQ(task.Status(), "1");

  task.Write("CLIENTS.LER", "1;name 1\n");
  // The line in hand may have reached the table before its trace. Then the table refuses its key.
  const Ending resumed = task.Run({"--resume"});
  EXPECT_THAT(resumed.code, AnyOf(0, 1)) << resumed.err;
  const std::string errors = task.Read("CLIENTS.ERR");
  EXPECT_LE(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
  EXPECT_EQ(task.Rows(kCounts), EveryLineOnce());
}

TEST(Killing, IsGoneOnFromAsTheCommandSaysWhenNoLineWasRejected) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source(AllLines());
  EXPECT_EQ(StartedRun(task).End(SIGKILL).code, 128 + SIGKILL);
  const std::string trace = task.Read("CLIENTS.TRC");
  const std::string report = task.Report();
  const std::string rows = task.Rows(kCounts);

  const Ending resumed = task.Run({"--resume"});
  EXPECT_EQ(resumed.code, 3);
  EXPECT_TRUE(resumed.err.starts_with("imptable: ")) << resumed.err;
  const auto traced = std::count(trace.begin(), trace.end(), '\n');
  EXPECT_THAT(resumed.err, HasSubstr(' ' + std::to_string(traced) + ' '));
  EXPECT_EQ(task.Read("CLIENTS.TRC"), trace);
  EXPECT_EQ(task.Report(), report);
  EXPECT_EQ(task.Rows(kCounts), rows);
  EXPECT_EQ(task.Status(), "1");

  const std::vector<std::string> commands = AdvisedCommands(resumed.err);
  ASSERT_EQ(commands.size(), 2U) << resumed.err;
  OutputOf(task.Typed(commands.front()));
  // The line in hand may have reached the table before its trace. Then the table refuses its key.
  EXPECT_THAT(Finish(task.Typed(commands.back())).code, AnyOf(0, 1));
  EXPECT_EQ(task.Rows(kCounts), EveryLineOnce());
}

}  // namespace
}  // namespace imptable
