#ifndef TESTS_ROBUSTNESS_KILLS_CHAINMODEL_H_
#define TESTS_ROBUSTNESS_KILLS_CHAINMODEL_H_

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tests/robustness/kills/TableModel.h"

namespace imptable {

/// The lines without their ends. A last line without an end counts.
std::vector<std::string> LinesOf(const std::string& text);

/// Each with a line feed.
std::string Joined(const std::vector<std::string>& lines);

/// What a run leaves for the next.
struct SideTexts {
  std::string trace;     ///< ".TRC"
  std::string rejected;  ///< ".LER"
  bool operator==(const SideTexts&) const = default;
};

struct Traced {
  int line = 0;
  bool failed = false;
};

/// @throws std::runtime_error  for a text that is no trace.
std::vector<Traced> ReadTrace(const std::string& trace);

/// Where a chain of resumes stands.
struct ChainState {
  int reached = 0;                      ///< highest source line of which the result is known
  std::map<int, std::string> rejected;  ///< those that failed, with their text
  bool operator==(const ChainState&) const = default;
};

/// What a resume makes of the state and of what the last run left.
ChainState Merged(ChainState state, const SideTexts& left, const std::vector<std::string>& source);

/// One line that a run will come to.
struct PlannedLine {
  int number = 0;
  std::string text;
};

/// The lines that a run will come to: every line when the state is empty, as in a fresh run.
std::vector<PlannedLine> PlanOf(const ChainState& state, const std::vector<std::string>& source);

/// A line that a run comes to, and what it does.
struct ExpectedLine {
  PlannedLine line;
  LineOutcome outcome;
};

/// What a whole run does.
struct ExpectedRun {
  std::vector<ExpectedLine> lines = {};  ///< up to the end or to the error limit
  int errors = 0;
  bool stopped = false;  ///< by the error limit
  bool came_to_lines = true;

  std::string Trace(std::size_t count) const;  ///< after so many lines
  std::string RejectedText(std::size_t count) const;
  std::vector<std::string> Effects(std::size_t count) const;
};

/// @param table  a copy, as it is before the run.
ExpectedRun Expect(TableModel table, const std::vector<PlannedLine>& plan, int error_limit);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_CHAINMODEL_H_
