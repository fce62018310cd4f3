#include "tests/scenarios/Scenario.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace imptable {
namespace {

namespace fs = std::filesystem;

/// The folder beside the scenarios with the files for scenarios that have none of their own.
constexpr const char* kDefaults = "defaults";

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

std::string DefaultsOf(const Scenario& scenario) {
  const fs::path scenarios = fs::path(scenario.folder).parent_path().parent_path();
  return (scenarios / kDefaults).string() + '/';
}

/// `[TASK] [options] = CODE` as the words of the command.
void ReadRun(const std::vector<std::string>& words, ScenarioStep& step) {
  if (words.size() < 3 || words[words.size() - 2] != "=") {
    throw std::runtime_error("a run ends with = EXITCODE");
  }
  step.exit_code = std::stoi(words.back());
  std::vector<std::string> rest(words.begin() + 1, words.end() - 2);
  const auto language = std::find(rest.begin(), rest.end(), "--lang");
  if (language != rest.end() && language + 1 != rest.end()) {
    step.words.assign(language, language + 2);
    rest.erase(language, language + 2);
  }
  std::string task = "T1";
  if (!rest.empty() && !rest.front().starts_with("--")) {
    task = rest.front();
    rest.erase(rest.begin());
  }
  step.words.insert(step.words.end(), {"run", "S1", task});
  step.words.insert(step.words.end(), rest.begin(), rest.end());
}

/// Settings that follow each other are set by one process.
void AddSetting(ScenarioStep step, std::vector<ScenarioStep>& steps) {
  if (steps.empty() || steps.back().kind != step.kind || steps.back().only != step.only) {
    steps.push_back(std::move(step));
    return;
  }
  steps.back().text += '\n' + step.text;
  steps.back().words.push_back(step.words.front());
}

void ReadLine(const std::string& line, Scenario& scenario, std::optional<DatabaseKind> only = {});

/// `on DATABASE STEP`.
void ReadLineForOne(const std::string& line, Scenario& scenario) {
  std::istringstream in(line);
  std::string on;
  std::string name;
  std::string step;
  in >> on >> name >> std::ws;
  std::getline(in, step);
  const DatabaseKind kind = DatabaseKindFrom(name);
  const std::vector<DatabaseKind>& all = scenario.databases;
  if (std::find(all.begin(), all.end(), kind) == all.end()) {
    throw std::runtime_error("the scenario doesn't run on " + name);
  }
  if (step.empty()) throw std::runtime_error("no step");
  ReadLine(step, scenario, kind);
}

void ReadLine(const std::string& line, Scenario& scenario, std::optional<DatabaseKind> only) {
  const std::vector<std::string> words = WordsOf(line);
  if (words.empty() || words.front().starts_with('#')) return;
  const std::string& first = words.front();
  if (only && (first == "on" || first == "locale")) {
    throw std::runtime_error(first + " isn't for one database");
  }
  if (first == "on") return ReadLineForOne(line, scenario);
  ScenarioStep step{.text = line, .only = only};
  step.words.assign(words.begin() + 1, words.end());
  const auto wants = [&](std::size_t count) {
    if (step.words.size() != count) throw std::runtime_error("wrong number of words");
  };
  if (first == "locale") {
    wants(2);
    scenario.locale = {step.words[0], step.words[1]};
    return;
  }
  if (first == "run") {
    step.words.clear();
    ReadRun(words, step);
  } else if (first == "set") {
    step.kind = ScenarioStep::Kind::kSet;
    step.words = {line.substr(line.find("set ") + 4)};
    return AddSetting(std::move(step), scenario.steps);
  } else if (first == "copy") {
    wants(2);
    step.kind = ScenarioStep::Kind::kCopy;
  } else if (first == "remove") {
    wants(1);
    step.kind = ScenarioStep::Kind::kRemove;
  } else if (first == "sql") {
    step.kind = ScenarioStep::Kind::kSql;
    step.words = {line.substr(line.find("sql") + 3)};
  } else {
    throw std::runtime_error("no such step");
  }
  scenario.steps.push_back(std::move(step));
}

}  // namespace

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("Can't read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Scenario::FileFor(DatabaseKind kind, const std::string& stem,
                              const std::string& extension) const {
  const std::string database = '.' + std::string(NameOf(kind));
  for (const std::string& place : {folder, DefaultsOf(*this)}) {
    for (const std::string& file : {stem + database + extension, stem + extension}) {
      if (fs::exists(place + file)) return place + file;
    }
  }
  throw std::runtime_error("No " + stem + extension + " for " + folder);
}

std::string Scenario::DataFolder() const {
  return (fs::exists(folder + "data") ? folder : DefaultsOf(*this)) + "data";
}

Scenario ReadScenario(const std::string& folder) {
  Scenario scenario;
  scenario.folder = folder;
  scenario.name = fs::path(folder).parent_path().filename().string();
  if (fs::exists(folder + "databases")) {
    for (const std::string& name : WordsOf(FileText(folder + "databases"))) {
      scenario.databases.push_back(DatabaseKindFrom(name));
    }
  } else {
    scenario.databases.assign(kDatabaseKinds.begin(), kDatabaseKinds.end());
  }
  std::istringstream lines(FileText(folder + "steps"));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    try {
      ReadLine(line, scenario);
    } catch (const std::exception& error) {
      throw std::runtime_error(folder + "steps:" + std::to_string(number) + ": " + error.what());
    }
  }
  return scenario;
}

std::vector<Scenario> ReadScenarios(const std::string& folder) {
  std::vector<Scenario> scenarios;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename() != kDefaults) {
      scenarios.push_back(ReadScenario(entry.path().string() + '/'));
    }
  }
  std::sort(scenarios.begin(), scenarios.end(),
            [](const Scenario& a, const Scenario& b) { return a.name < b.name; });
  return scenarios;
}

}  // namespace imptable
