// A second signal while a statement waits for somebody else's transaction.
#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "tests/scenarios/ClientTask.h"

namespace imptable {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::HasSubstr;
using SteadyClock = std::chrono::steady_clock;

/// Longer than a run takes to be cancelled, even on a slow machine.
constexpr int kHeldSeconds = 12;
constexpr seconds kCancelledWithin{6};

/// Holds the key of the first line in a transaction of its own that never takes effect.
std::thread HoldTheKey(const ClientTask& task, const std::string& begin, const std::string& sleep) {
  return std::thread([&task, begin, sleep] {
    task.database().Execute(begin + ";\nINSERT INTO client VALUES (1, 'held');\nSELECT " + sleep +
                            '(' + std::to_string(kHeldSeconds) + ");\nROLLBACK;\n");
  });
}

void ExpectCancellation(DatabaseKind kind, const std::string& begin, const std::string& sleep,
                        const std::string& reason) {
  const ClientTask task(kind);
  task.Source(ClientLines(1, 3));
  std::thread holder = HoldTheKey(task, begin, sleep);
  std::this_thread::sleep_for(milliseconds(1500));
  ChildProcess run(task.RunCommand());
  const auto end = SteadyClock::now() + seconds(5);
  while (!task.Exists("CLIENTS.TRC") && SteadyClock::now() < end) {
    std::this_thread::sleep_for(milliseconds(10));
  }
  std::this_thread::sleep_for(milliseconds(1000));
  run.Signal(SIGHUP);
  std::this_thread::sleep_for(milliseconds(700));
  EXPECT_TRUE(run.Running()) << "the first one waits for the line in hand";
  const auto second = SteadyClock::now();
  run.Signal(SIGINT);
  const Ending ending = run.Wait();
  EXPECT_LT(SteadyClock::now() - second, kCancelledWithin);
  EXPECT_EQ(ending.code, 130) << ending.err;
  EXPECT_EQ(task.Read("CLIENTS.LER"), "1;name 1\n");
  EXPECT_EQ(task.Read("CLIENTS.TRC"), "00000001100000001\n");
  EXPECT_THAT(task.Read("CLIENTS.ERR"), HasSubstr(reason));
  holder.join();
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");

  const Ending resumed = task.Run({"--resume"});
  EXPECT_EQ(resumed.code, 0) << resumed.err;
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "3\n");
}

TEST(Cancellation, EndsAStatementThatWaitsAtTheSecondSignal_on_postgresql) {
  ExpectCancellation(DatabaseKind::kPostgresql, "BEGIN", "pg_sleep", "canceling statement");
}

TEST(Cancellation, EndsAStatementThatWaitsAtTheSecondSignal_on_mariadb) {
  ExpectCancellation(DatabaseKind::kMariadb, "START TRANSACTION", "SLEEP", "interrupted");
}

}  // namespace
}  // namespace imptable
