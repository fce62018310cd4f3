// Lines at random, put to the component's parser and to the rules:  differential LINES [SEED]
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "tests/robustness/differential/ComponentRecord.h"
#include "tests/robustness/differential/GeneratedTask.h"

namespace imptable {
namespace {

constexpr std::uint64_t kLinesOfATask = 50;

struct Tally {
  std::uint64_t lines = 0, tasks = 0, records = 0, empty = 0, refused = 0;
};

void Describe(const rules::Task& task, const std::string& line) {
  std::cerr << "line:      " << line << "\ndelimited: " << task.delimited << " by '"
            << task.delimiter << "', UTF-8 " << task.utf8 << ", separator '" << task.user_separator
            << "', SepDec " << task.explicit_separator << ", Null " << task.blanks_are_null
            << ", Param " << task.assigned << ", year " << task.year << '\n';
  for (const std::string& entry : task.layout) std::cerr << "Colonnes   " << entry << '\n';
  for (const std::string& value : task.assignment) std::cerr << "Champs     " << value << '\n';
  for (const auto& [name, value] : task.variables) {
    std::cerr << "variable   " << name << " '" << value << "'\n";
  }
  for (const rules::Column& column : task.columns) {
    std::cerr << "column     " << column.sql_type << (column.ignored ? " ignored\n" : "\n");
  }
}

/// @return whether each line of one task came out as the rules have it.
bool TaskAgrees(std::uint32_t seed, std::uint64_t lines, Tally& tally) {
  Draws draws(seed);
  const rules::Task task = GeneratedTask(draws);
  static TestComponent of_utf8;
  static TestComponent of_bytes(std::make_unique<Latin1TextEncoding>());
  ComponentRecord component(task.utf8 ? of_utf8 : of_bytes, task);
  ++tally.tasks;
  for (; lines > 0; --lines) {
    const std::string line = GeneratedLine(task, draws);
    const rules::Record expected = RecordByTheRules(task, line);
    const rules::Record given = component.Parse(line);
    ++tally.lines;
    tally.records += expected.result == rules::Record::Result::kRecord;
    tally.empty += expected.result == rules::Record::Result::kEmpty;
    tally.refused += expected.result == rules::Record::Result::kFailed;
    if (given == expected) continue;
    std::cerr << "differential: they differ for the task of seed " << seed << '\n';
    Describe(task, line);
    std::cerr << "rules:     " << Described(expected) << "\ncomponent: " << Described(given)
              << '\n';
    return false;
  }
  return true;
}

int Run(std::uint64_t lines, std::uint32_t seed) {
  Tally tally;
  for (; tally.lines < lines; ++seed) {
    if (!TaskAgrees(seed, std::min(kLinesOfATask, lines - tally.lines), tally)) return 1;
  }
  std::cout << "ran: " << tally.lines << " lines over " << tally.tasks
            << " layouts: " << tally.records << " records, " << tally.empty << " empty ones, "
            << tally.refused << " refused, all as by the rules\n";
  return tally.records > 0 && tally.refused > 0 ? 0 : 1;
}

}  // namespace
}  // namespace imptable

int main(int count, char** arguments) {
  if (count < 2 || count > 3) {
    std::cerr << "usage: differential LINES [SEED]\n";
    return 2;
  }
  try {
    const std::uint64_t seed = count == 3 ? std::stoull(arguments[2]) : 1;
    return imptable::Run(std::stoull(arguments[1]), static_cast<std::uint32_t>(seed));
  } catch (const std::exception& failure) {
    std::cerr << "differential: " << failure.what() << '\n';
    return 1;
  }
}
