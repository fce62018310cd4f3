// Measures whole runs through the Windows component against a bare loop of the same statements,
// both under the same Wine.
//
//   component_bench IMPTABLE WINE BARE_LOOP SQLITE_DRIVER WORK_FOLDER RESULTS_FILE [--small]
//
// IMPTABLE is tests/win32/imptable, whose run prints its seconds; WINE runs BARE_LOOP. Times are
// those of the work itself, without the start of Wine.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/BenchFiles.h"
#include "bench/BenchRecord.h"
#include "bench/ChildProcess.h"

namespace imptable {
namespace {

struct Sizes {
  int lines = 50000;
  int pairs = 9;
};

/// The path for a Windows program: drive Z: is this system's root.
std::string WindowsPath(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return "Z:" + path;
}

class ComponentBench {
 public:
  ComponentBench(char** arguments, bool small)
      : imptable_(arguments[1]),
        wine_(arguments[2]),
        bare_loop_(arguments[3]),
        work_(std::string(arguments[5]) + "/"),
        results_path_(arguments[6]) {
    if (small) sizes_ = {1000, 1};
    std::filesystem::remove_all(work_);
    std::filesystem::create_directories(work_);
    WriteFile(work_ + "odbc.ini", "[Files]\nDriver=" + std::string(arguments[4]) +
                                      "\nDatabase=" + work_ + "table.db\nSyncPragma=OFF\n");
    setenv("ODBCINI", (work_ + "odbc.ini").c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
  }

  void Run() {
    WriteLines(work_ + "LINES.CSV", 1, sizes_.lines);
    Measure("INSERT", "0", 0, sizes_.lines);
    Measure("UPDATE", "1", sizes_.lines, sizes_.lines);
    WriteFile(results_path_, record_.lines());
  }

 private:
  void Measure(const std::string& name, const std::string& mode, int rows_before, int rows_after) {
    std::vector<std::string> set{imptable_, "set", "Bench", "Task"};
    for (std::string& value : CustomerTask("Files", WindowsPath(work_), "LINES")) {
      set.push_back(std::move(value));
    }
    set.push_back("Mode=" + mode);
    RunChecked(set);
    MakeDatabase(work_ + "before.db", rows_before);
    const auto seconds_of = [&](const std::vector<std::string>& command) {
      CopyFile(work_ + "before.db", work_ + "table.db");
      const double seconds = std::stod(RunChecked(command).output);
      if (CountRows(work_ + "table.db") != rows_after) {
        throw std::runtime_error(name + ": the rows are not what they should be");
      }
      return seconds;
    };
    record_.AddPairs(
        "Component, " + name + ", " + std::to_string(sizes_.lines) + " lines, to a bare loop",
        sizes_.pairs,
        [&] {
          return seconds_of(
              {imptable_, "run", "Bench", "Task", "--report", WindowsPath(work_ + "report.txt")});
        },
        [&] {
          return seconds_of({wine_, bare_loop_, "Bench", "Task"});
        },
        "<= 1.25");
  }

  std::string imptable_;
  std::string wine_;
  std::string bare_loop_;
  std::string work_;
  std::string results_path_;
  BenchRecord record_;
  Sizes sizes_;
};

}  // namespace
}  // namespace imptable

int main(int count, char** arguments) {
  if (count < 7) {
    std::fputs(
        "usage: component_bench IMPTABLE WINE BARE_LOOP SQLITE_DRIVER WORK_FOLDER RESULTS_FILE"
        " [--small]\n",
        stderr);
    return 2;
  }
  try {
    imptable::ComponentBench(arguments, count > 7 && std::string(arguments[7]) == "--small").Run();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "component_bench: %s\n", error.what());
    return 1;
  }
}
