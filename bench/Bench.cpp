// Measures whole runs of the command against the least work there is: a bare loop of the same
// statements, or counting the fields. The two take turns, so that the ratios hold on a noisy
// machine.
//
//   bench BIN_FOLDER DRIVER_FOLDER SQLITE_DRIVER WORK_FOLDER RESULTS_FILE [--small]

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/BenchFiles.h"
#include "bench/BenchRecord.h"
#include "bench/ChildProcess.h"

namespace imptable {
namespace {

struct Sizes {
  int lines = 200000;
  int keyed_lines = 100000;
  int few_lines = 5000;
  int many_lines = 5000000;
  int database_pairs = 5;
  int driver_pairs = 9;
};

class Bench {
 public:
  Bench(char** arguments, bool small)
      : bin_(arguments[1]), work_(std::string(arguments[4]) + "/"), results_path_(arguments[5]) {
    if (small) sizes_ = {2000, 1000, 1000, 20000, 1, 1};
    std::filesystem::remove_all(work_);
    std::filesystem::create_directories(work_);
    registry_ = work_ + "registry.db";
    const std::string driver = std::string(arguments[2]) + "/libscripteddriver.so";
    WriteFile(work_ + "odbc.ini", "[Files]\nDriver=" + std::string(arguments[3]) +
                                      "\nDatabase=" + work_ +
                                      "table.db\nSyncPragma=OFF\n[Nothing]\nDriver=" + driver +
                                      "\nScript=" + work_ + "script.txt\n");
    WriteFile(work_ + "script.txt",
              "column ID 4 INTEGER 10 0 0\ncolumn NAME 12 VARCHAR 40 0 1\n"
              "column STREET 12 VARCHAR 40 0 1\ncolumn CITY 12 VARCHAR 30 0 1\n"
              "column PRICE 3 DECIMAL 10 2 1\ncolumn RATE 3 DECIMAL 8 2 1\n"
              "column BORN 9 DATE 10 0 1\ncolumn NOTE 12 VARCHAR 60 0 1\n");
    setenv("ODBCINI", (work_ + "odbc.ini").c_str(), 1);
  }

  void Run() {
    WriteLines(work_ + "LINES.CSV", 1, sizes_.lines);
    AgainstBareLoop("INSERT", "0", "LINES", 0, sizes_.lines, sizes_.lines);
    AgainstFieldCount("0");
    AgainstFieldCount("1");
    Memory();
    const int half = sizes_.keyed_lines / 2;
    WriteLines(work_ + "KEYED.CSV", 1, sizes_.keyed_lines);
    AgainstBareLoop("UPDATE", "1", "KEYED", sizes_.keyed_lines, sizes_.keyed_lines,
                    sizes_.keyed_lines);
    AgainstBareLoop("UPDATE/INSERT", "3", "KEYED", half, sizes_.keyed_lines, sizes_.keyed_lines);
    AgainstBareLoop("DELETE", "4", "KEYED", sizes_.keyed_lines, sizes_.keyed_lines, 0);
    WriteFile(results_path_, record_.lines());
  }

 private:
  void SetTask(const std::string& source, const std::string& alias, const std::string& mode,
               const std::string& resume_files) {
    std::vector<std::string> command{
        bin_ + "/imptable", "--registry", registry_, "set", "Bench", "Task"};
    for (std::string& value : CustomerTask(source, work_, alias)) {
      command.push_back(std::move(value));
    }
    command.push_back("Mode=" + mode);
    command.push_back("RecErreurs=" + resume_files);
    RunChecked(command);
  }

  ChildResult RunTask() {
    return RunChecked({bin_ + "/imptable", "--registry", registry_, "run", "Bench", "Task",
                       "--quiet", "--report", work_ + "report.txt"});
  }

  void AgainstBareLoop(const std::string& name, const std::string& mode, const std::string& alias,
                       int rows_before, int lines, int rows_after) {
    SetTask("Files", alias, mode, "1");
    MakeDatabase(work_ + "before.db", rows_before);
    const auto on_fresh_table = [&](const std::function<double()>& run) {
      CopyFile(work_ + "before.db", work_ + "table.db");
      const double seconds = run();
      if (CountRows(work_ + "table.db") != rows_after) {
        throw std::runtime_error(name + ": the rows are not what they should be");
      }
      return seconds;
    };
    record_.AddPairs(
        name + ", " + std::to_string(lines) + " lines, SQLite, to a bare loop",
        sizes_.database_pairs, [&] { return on_fresh_table([&] { return RunTask().seconds; }); },
        [&] {
          return on_fresh_table([&] {
            return std::stod(RunChecked({bin_ + "/bare_loop", registry_, "Bench", "Task"}).output);
          });
        },
        "<= 1.10");
  }

  void AgainstFieldCount(const std::string& resume_files) {
    SetTask("Nothing", "LINES", "0", resume_files);
    record_.AddPairs(
        "Per line, RecErreurs " + resume_files + ", to counting fields", sizes_.driver_pairs,
        [&] { return RunTask().seconds; },
        [&] {
          return RunChecked({"mawk", "-F;", "{n+=NF} END{print n}", work_ + "LINES.CSV"}).seconds;
        },
        resume_files == "0" ? "<= 3" : "<= 6");
  }

  void Memory() {
    WriteLines(work_ + "FEW.CSV", 1, sizes_.few_lines);
    WriteLines(work_ + "MANY.CSV", 1, sizes_.many_lines);
    SetTask("Nothing", "FEW", "0", "1");
    const double few = RunTask().peak_mib;
    SetTask("Nothing", "MANY", "0", "1");
    const double many = RunTask().peak_mib;
    std::filesystem::remove(work_ + "MANY.CSV");
    record_.Add("Peak memory, " + std::to_string(sizes_.many_lines) + " lines to " +
                    std::to_string(sizes_.few_lines),
                "MiB", many, few, many / few, many - few, many - few, "<= 4 MiB more");
  }

  std::string bin_;
  std::string work_;
  std::string results_path_;
  std::string registry_;
  BenchRecord record_;
  Sizes sizes_;
};

}  // namespace
}  // namespace imptable

int main(int count, char** arguments) {
  if (count < 6) {
    std::fputs(
        "usage: bench BIN_FOLDER DRIVER_FOLDER SQLITE_DRIVER WORK_FOLDER RESULTS_FILE"
        " [--small]\n",
        stderr);
    return 2;
  }
  try {
    imptable::Bench(arguments, count > 6 && std::string(arguments[6]) == "--small").Run();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
}
