#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/robustness/resources/CountedTask.h"
#include "tests/robustness/resources/Figures.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int kLines = 5000;
constexpr int kLimit = 20;

/// The suite's own server, which it may stop. The destructor starts it again.
class StoppableServer {
 public:
  ~StoppableServer() {
    if (stopped_) Start();
  }

  void Stop(const std::string& how) {
    OutputOf(Control({"stop", how}));
    stopped_ = true;
  }
  void Start() {
    OutputOf(Control({"start"}));
    stopped_ = false;
  }

 private:
  static Invocation Control(const std::vector<std::string>& words) {
    const char* const folder = std::getenv("IMPTABLE_SERVERS");
    if (folder == nullptr) throw std::runtime_error("IMPTABLE_SERVERS is not set: use ./run");
    Invocation invocation{.words = {RESOURCES_FOLDER "/postgresql", folder}};
    invocation.words.insert(invocation.words.end(), words.begin(), words.end());
    return invocation;
  }

  bool stopped_ = false;
};

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

struct Restart {
  std::string how;
  int after_lines;
};

class ServerRestart : public testing::TestWithParam<Restart> {};

/// Every line up to the lost connection is done, every one after it rejected, up to the limit.
void ExpectTracedAsRejected(const CountedTask& task, const std::string& source) {
  const std::vector<std::string> trace = LinesOf(task.Read("CLIENTS.TRC"));
  const std::vector<std::string> sources = LinesOf(source);
  const std::size_t done = trace.size() - kLimit - 1;
  std::string rejected;
  for (std::size_t n = 0; n < trace.size(); ++n) {
    char expected[32];
    const int errors = n < done ? 0 : static_cast<int>(n - done) + 1;
    std::snprintf(expected, sizeof expected, "%08d%d%08d", static_cast<int>(n) + 1,
                  errors > 0 ? 1 : 0, errors);
    ASSERT_EQ(trace[n], expected);
    if (errors > 0) rejected += sources[n] + '\n';
  }
  EXPECT_EQ(task.Read("CLIENTS.LER"), rejected);
}

TEST_P(ServerRestart, RejectsEachFurtherLineUpToTheLimitAndAResumeLosesNothing) {
  const CountedTask task(DatabaseKind::kPostgresql,
                         "\"Erreurs\"=\"" + std::to_string(kLimit) + "\"\n");
  // Else a server that dies at once may lose committed rows, which this test isn't about.
  task.database().Execute(
      "DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET synchronous_commit = on', "
      "current_database()); END $$;\n");
  const std::string source = ClientLines(1, kLines);
  task.Source(source);
  StoppableServer server;
  const auto run = task.StartAndTrace(GetParam().after_lines);
  server.Stop(GetParam().how);
  const bool restart_before_the_end = GetParam().after_lines % 2 == 0;
  if (restart_before_the_end) server.Start();
  const Ending ending = run->Wait();
  EXPECT_EQ(ending.code, 1) << Shown(ending);
  EXPECT_THAT(ending.err, StartsWith("imptable: task \"T1\": 21 line(s) rejected, see "));
  EXPECT_THAT(ending.err, HasSubstr("--resume"));
  EXPECT_EQ(task.Status(), "3");
  EXPECT_THAT(task.Read("CLIENTS.ERR"), HasSubstr("connection"));
  EXPECT_THAT(task.Report(), HasSubstr(" 21 error(s) detected"));
  ExpectTracedAsRejected(task, source);

  if (!restart_before_the_end) {
    // The resume can't connect, and must leave what a later resume needs.
    const std::string trace = task.Read("CLIENTS.TRC");
    const std::string rejected = task.Read("CLIENTS.LER");
    const Ending refused = task.Run({"--resume"});
    EXPECT_EQ(refused.code, 1) << Shown(refused);
    EXPECT_THAT(refused.err, StartsWith("imptable: task \"T1\": no connection to "));
    EXPECT_EQ(task.Read("CLIENTS.TRC"), trace);
    EXPECT_EQ(task.Read("CLIENTS.LER"), rejected);
    server.Start();
  }
  const Ending resumed = task.Run({"--resume"});
  EXPECT_EQ(resumed.code, 0) << Shown(resumed);
  // The line in hand may have been committed without an answer.
  task.CheckDone(kLines, 1);
  Figure("PostgreSQL, " + GetParam().how + " after " + std::to_string(GetParam().after_lines) +
         " lines");
}

std::vector<Restart> Restarts() {
  std::vector<Restart> restarts;
  const int step = InLongForm() ? 97 : 1001;
  for (const char* const how : {"fast", "immediate"}) {
    for (int lines = 1; lines < 1500; lines += step) restarts.push_back({how, lines});
  }
  return restarts;
}

INSTANTIATE_TEST_SUITE_P(OfPostgresql, ServerRestart, testing::ValuesIn(Restarts()),
                         [](const auto& each) {
                           return each.param.how + std::to_string(each.param.after_lines);
                         });

}  // namespace
}  // namespace imptable
