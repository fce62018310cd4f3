#ifndef TESTS_SCENARIOS_SCENARIO_H_
#define TESTS_SCENARIOS_SCENARIO_H_

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/scenarios/Database.h"

namespace imptable {

/// One line of a scenario's `steps`, or several lines of `set` that follow each other.
struct ScenarioStep {
  enum class Kind { kRun, kSet, kCopy, kSql, kRemove };
  Kind kind = Kind::kRun;
  std::string text;                       ///< the line, for messages
  std::optional<DatabaseKind> only = {};  ///< taken on this database alone
  std::vector<std::string> words =
      {};  ///< of a run: those after the command; of others: all after the first
  int exit_code = 0;
};

/// A whole run as a folder; README.md says what it holds.
struct Scenario {
  std::string name;
  std::string folder;  ///< ends with "/"
  std::vector<DatabaseKind> databases;
  std::vector<ScenarioStep> steps;
  std::optional<std::pair<std::string, std::string>> locale;  ///< its source and its code set

  /// The path of its file STEM.DATABASE.EXTENSION, else of its STEM.EXTENSION, else of one of these
  /// among the defaults.
  std::string FileFor(DatabaseKind kind, const std::string& stem,
                      const std::string& extension) const;
  /// The folder of the files that a run begins with: its own, else that of the defaults.
  std::string DataFolder() const;
};

/// @throws std::runtime_error  naming the file and the line that it can't make sense of.
Scenario ReadScenario(const std::string& folder);

/// Every folder but `defaults`, by name.
/// @throws std::runtime_error  as above.
std::vector<Scenario> ReadScenarios(const std::string& folder);

/// The whole file; throws when it can't be read.
std::string FileText(const std::string& path);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_SCENARIO_H_
