// Random values into every type of column of a real database, in every mode of import.
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "tests/robustness/databases/Checks.h"

namespace imptable {
namespace {

constexpr std::size_t kMostShown = 10;  // findings of one run

struct Plan {
  DatabaseKind kind = DatabaseKind::kSqlite;
  std::string name;
  std::string options;  // of the data source
  std::uint32_t seed = 1;
  int lines = 1;  // of each run
};

/// "mariadb_loose" is a MariaDB that stores what it can make of a bad value instead of refusing it.
Plan PlanFrom(int count, char** words) {
  Plan plan;
  plan.name = count > 1 ? words[1] : "";
  const bool loose = plan.name == "mariadb_loose";
  plan.kind = DatabaseKindFrom(loose ? "mariadb" : plan.name);
  if (loose) plan.options = "InitStmt=SET sql_mode=''\n";
  for (int n = 2; n < count; ++n) {
    const std::string word = words[n];
    const auto number =
        static_cast<std::uint32_t>(std::strtoul(word.c_str() + word.find('=') + 1, nullptr, 10));
    if (word.starts_with("seed=")) plan.seed = number;
    if (word.starts_with("lines=")) plan.lines = static_cast<int>(number);
  }
  return plan;
}

/// Not a BIT key that the mode assigns: a refused assignment would hide what the key does.
bool CanBeKeyIn(ImportMode mode, const ColumnType& type) {
  return type.key != KeyKind::kNone &&
         (mode == ImportMode::kDelete || !type.sql.starts_with("BIT"));
}

/// @return whether there was no finding.
bool RunMode(const Plan& plan, const ValueTask& task, ImportMode mode) {
  CheckedRun all;
  const auto take = [&](const ColumnType& type, const char* what, const CheckedRun& run) {
    all.lines += run.lines;
    all.rejected += run.rejected;
    for (std::size_t n = 0; n < std::min(run.findings.size(), kMostShown); ++n) {
      std::cout << "finding: " << plan.name << ' ' << NameOf(mode) << ' ' << type.sql << ", random "
                << what << ": " << run.findings[n] << '\n';
    }
    all.findings.insert(all.findings.end(), run.findings.begin(), run.findings.end());
  };
  RandomValues random(plan.seed);
  for (const ColumnType& type : TypesOf(plan.kind)) {
    if (mode != ImportMode::kDelete) {
      take(type, "values", CheckValues(task, mode, type, plan.lines, random));
    }
    if (mode != ImportMode::kInsert && CanBeKeyIn(mode, type)) {
      const bool zero_dates = plan.kind == DatabaseKind::kMariadb;
      take(type, "keys", CheckKeys(task, mode, type, plan.lines, zero_dates, random));
    }
  }
  std::cout << "ran: " << all.lines << " lines by " << NameOf(mode) << " into " << plan.name << ", "
            << all.rejected << " rejected, " << all.findings.size() << " findings, seed "
            << plan.seed << std::endl;
  return all.findings.empty() && all.lines > 0;
}

int Run(int count, char** words) {
  const Plan plan = PlanFrom(count, words);
  const ValueTask task(plan.kind, plan.options);
  bool clean = true;
  for (const ImportMode mode :
       {ImportMode::kInsert, ImportMode::kUpdate, ImportMode::kUpdateInsert, ImportMode::kDelete}) {
    clean = RunMode(plan, task, mode) && clean;
  }
  return clean ? 0 : 1;
}

}  // namespace
}  // namespace imptable

int main(int count, char** words) {
  try {
    return imptable::Run(count, words);
  } catch (const std::exception& error) {
    std::cerr << "database_values: " << error.what() << '\n';
    return 2;
  }
}
