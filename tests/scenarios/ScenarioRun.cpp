#include "tests/scenarios/ScenarioRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "tests/scenarios/LastingText.h"
#include "tests/scenarios/Workplace.h"

namespace imptable {
namespace {

namespace fs = std::filesystem;

/// After these two codes, the task's status is settled.
constexpr int kDone = 0;
constexpr int kRunFailed = 1;

/// A run may print warnings, one line each, before its error.
std::string WithoutWarnings(const std::string& lines) {
  std::string rest = lines;
  while (rest.starts_with("imptable: attention : ") || rest.starts_with("imptable: warning: ")) {
    rest.erase(0, rest.find('\n') + 1);
  }
  return rest;
}

class ScenarioRun {
 public:
  ScenarioRun(const Scenario& scenario, DatabaseKind kind)
      : scenario_(scenario), kind_(kind), place_(kind) {}

  ResultFiles Perform() {
    if (scenario_.locale) place_.UseLocale(scenario_.locale->first, scenario_.locale->second);
    place_.database().Execute(FileText(File("schema", ".sql")));
    fs::copy(Data(), place_.RunFolder(), fs::copy_options::recursive);
    place_.LoadTask(File("task", ".reg"));
    for (const ScenarioStep& step : scenario_.steps) {
      if (step.only && *step.only != kind_) continue;
      SCOPED_TRACE(step.text);
      Take(step);
    }
    return Results();
  }

 private:
  std::string Data() const { return scenario_.DataFolder(); }
  std::string File(const std::string& stem, const std::string& extension) const {
    return scenario_.FileFor(kind_, stem, extension);
  }

  void Take(const ScenarioStep& step) {
    switch (step.kind) {
      case ScenarioStep::Kind::kRun:
        return Run(step);
      case ScenarioStep::Kind::kSet: {
        std::vector<std::string> words{"set", "S1", "T1"};
        words.insert(words.end(), step.words.begin(), step.words.end());
        OutputOf(place_.Command(words));
        return;
      }
      case ScenarioStep::Kind::kCopy:
        fs::copy(scenario_.folder + step.words[0], place_.RunFolder() + step.words[1],
                 fs::copy_options::overwrite_existing);
        return;
      case ScenarioStep::Kind::kSql:
        return place_.database().Execute(step.words[0] + ";\n");
      case ScenarioStep::Kind::kRemove:
        EXPECT_TRUE(fs::remove(place_.RunFolder() + step.words[0]));
        return;
    }
  }

  void Run(const ScenarioStep& step) {
    std::vector<std::string> words = step.words;
    auto report = std::find(words.begin(), words.end(), "--report");
    if (report == words.end()) report = words.insert(words.end(), {"--report", "report.txt"});
    reports_.insert(*(report + 1));
    const Ending ending = place_.Imptable(words);
    EXPECT_EQ(ending.code, step.exit_code) << ending.out << ending.err;
    if (step.exit_code == kDone) {
      EXPECT_EQ(WithoutWarnings(ending.err), "");
    } else {
      const std::string error = WithoutWarnings(ending.err);
      EXPECT_TRUE(error.starts_with("imptable: ")) << ending.err;
      EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << ending.err;
    }
    const auto task = std::find(words.begin(), words.end(), "run") + 2;
    if (step.exit_code != kDone && step.exit_code != kRunFailed) return;
    const std::string status = OutputOf(place_.Command({"status", "S1", *task}));
    EXPECT_EQ(status.substr(0, status.find('\n')), step.exit_code == kDone ? "2" : "3");
  }

  void TakeReport(const std::string& name, ResultFiles& results) const {
    if (!place_.folder().Exists(name)) return;
    const std::string text = place_.folder().Read(name);
    EXPECT_TRUE(ReportLinesEndAsTheyShould(text)) << "a line of " << name << " has no CR LF";
    results[name] = place_.Lasting(WithoutCarriageReturns(text));
  }

  ResultFiles Results() {
    ResultFiles results;
    for (const std::string& report : reports_) TakeReport(report, results);
    results["rows.txt"] = place_.database().Rows(FileText(File("rows", ".sql")));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(place_.RunFolder())) {
      if (!entry.is_regular_file()) continue;
      const std::string name = entry.path().lexically_relative(place_.RunFolder()).string();
      const std::string text = FileText(entry.path().string());
      const std::string given = Data() + '/' + name;
      if (fs::exists(given) && FileText(given) == text) continue;
      results["files/" + name] = place_.Lasting(WithoutCarriageReturns(text));
    }
    std::set<std::string> removed;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Data())) {
      const std::string name = entry.path().lexically_relative(Data()).string();
      if (!fs::exists(place_.RunFolder() + name)) removed.insert(name);
    }
    for (const std::string& name : removed) results["removed.txt"] += name + '\n';
    return results;
  }

  const Scenario& scenario_;
  DatabaseKind kind_;
  Workplace place_;
  std::set<std::string> reports_;
};

}  // namespace

ResultFiles PerformScenario(const Scenario& scenario, DatabaseKind kind) {
  return ScenarioRun(scenario, kind).Perform();
}

}  // namespace imptable
