#include "tests/robustness/resources/CountedTask.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sstream>
#include <thread>

#include "tests/scenarios/Advice.h"

namespace imptable {
namespace {

constexpr int kMostResumes = 10;
constexpr std::uintmax_t kTraceLineBytes = 18;

constexpr const char* kValues =
    "\"Erreurs\"=\"30000\"\n"
    "\"RecTrace\"=dword:00000001\n";

}  // namespace

std::string SourceText(SourceKind kind, int lines) {
  std::string text;
  for (int code = 1; code <= lines; ++code) {
    text += std::to_string(code);
    if (code % 3 != 0 || kind == SourceKind::kGood) {
      text += ";name " + std::to_string(code);
    } else if (kind == SourceKind::kRefused) {
      text += ';';
    } else {
      text += std::string(300, ';');
    }
    text += '\n';
  }
  return text;
}

CountedTask::CountedTask(DatabaseKind kind, const std::string& values)
    : ClientTask(kind, kValues + values) {
  database().Execute(
      "DROP TABLE client;"
      "CREATE TABLE client (code INTEGER NOT NULL, name VARCHAR(600) NOT NULL);\n");
}

void CountedTask::StartOver() const {
  database().Execute("DELETE FROM client;\n");
  for (const auto& entry : std::filesystem::directory_iterator(RunFolder())) {
    std::filesystem::remove_all(entry.path());
  }
  folder().Write("report.txt", "");
}

void CountedTask::MendRejectedLines() const {
  if (!Exists("CLIENTS.LER")) return;
  std::istringstream lines(Read("CLIENTS.LER"));
  std::string mended;
  for (std::string line; std::getline(lines, line);) {
    if (lines.eof()) {
      mended += line;  // torn
    } else {
      mended += line.substr(0, line.find(';')) + ";mended\n";
    }
  }
  Write("CLIENTS.LER", mended);
}

Ending CountedTask::GoOn() const {
  constexpr int kRefused = 3;
  const Ending ending = Run({"--resume"});
  if (ending.code != kRefused) return ending;
  const std::vector<std::string> commands = AdvisedCommands(ending.err);
  if (commands.empty()) return Run();
  for (const std::string& command : commands) {
    if (command != commands.back()) OutputOf(Typed(command));
  }
  EXPECT_TRUE(commands.back().ends_with("--resume")) << ending.err;
  return Run({"--resume"});
}

void CountedTask::CheckAccount(const Ending& ending, int lines) const {
  if (ending.code != 0 && ending.code != 1) return;
  int last = ending.code == 0 ? lines : 0;
  if (ending.code == 1 && Exists("CLIENTS.TRC")) {
    std::istringstream trace(Read("CLIENTS.TRC"));
    for (std::string line; std::getline(trace, line);) last = std::stoi(line.substr(0, 8));
  }
  std::set<int> found;
  std::istringstream rows(Rows("SELECT DISTINCT code FROM client"));
  for (std::string row; std::getline(rows, row);) found.insert(std::stoi(row));
  std::istringstream rejected(Exists("CLIENTS.LER") ? Read("CLIENTS.LER") : "");
  for (std::string line; std::getline(rejected, line);) found.insert(std::stoi(line));
  for (int code = 1; code <= last; ++code) {
    EXPECT_TRUE(found.contains(code)) << "line " << code << " is in neither, " << Shown(ending);
  }
}

void CountedTask::CompleteAndCheck(int lines, int most_twice) const {
  Ending ending;
  for (int resume = 0; resume < kMostResumes && ending.code != 0; ++resume) {
    MendRejectedLines();
    ending = GoOn();
    ASSERT_THAT(ending.code, testing::AnyOf(0, 1)) << Shown(ending);
    CheckAccount(ending, lines);
  }
  EXPECT_EQ(ending.code, 0) << Shown(ending);
  CheckDone(lines, most_twice);
}

void CountedTask::CheckDone(int lines, int most_twice) const {
  EXPECT_EQ(Status(), "2");
  EXPECT_EQ(Rows("SELECT COUNT(DISTINCT code), MIN(code), MAX(code) FROM client"),
            std::to_string(lines) + "|1|" + std::to_string(lines) + '\n');
  EXPECT_LE(std::stoi(Rows("SELECT COUNT(*) FROM client")), lines + most_twice);
  for (const char* const name : {"CLIENTS.TRC", "CLIENTS.LER", "CLIENTS.REP"}) {
    EXPECT_FALSE(Exists(name)) << name;
  }
}

int CountedTask::Traced() const {
  if (!Exists("CLIENTS.TRC")) return 0;
  const std::string trace = Read("CLIENTS.TRC");
  return static_cast<int>(std::count(trace.begin(), trace.end(), '\n'));
}

std::unique_ptr<ChildProcess> CountedTask::StartAndTrace(int lines) const {
  auto run = std::make_unique<ChildProcess>(RunCommand());
  const std::string trace = RunFolder() + "CLIENTS.TRC";
  const std::uintmax_t wanted = static_cast<std::uintmax_t>(lines) * kTraceLineBytes;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  for (std::uintmax_t bytes = 0; bytes < wanted;) {
    if (!run->Running() || std::chrono::steady_clock::now() > end) {
      ADD_FAILURE() << "the run came to " << bytes / kTraceLineBytes
                    << " lines: " << Shown(run->Wait(std::chrono::seconds(0)));
      break;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::error_code missing;
    bytes = std::filesystem::file_size(trace, missing);
    if (missing) bytes = 0;
  }
  return run;
}

bool InLongForm() { return std::getenv("IMPTABLE_ROBUSTNESS_LONG") != nullptr; }

std::string Shown(const Ending& ending) {
  return "code " + std::to_string(ending.code) + "\n" + ending.out + ending.err;
}

}  // namespace imptable
