#ifndef TESTS_ROBUSTNESS_RESOURCES_COUNTEDTASK_H_
#define TESTS_ROBUSTNESS_RESOURCES_COUNTEDTASK_H_

#include <memory>
#include <string>

#include "tests/scenarios/ClientTask.h"

namespace imptable {

/// Which lines of a source are bad, every third one or none.
enum class SourceKind {
  kGood,     // the trace grows fastest
  kRefused,  // refused by the database: the diagnostics grow fastest
  kLongBad,  // can't be parsed and are long: the rejected lines grow fastest
};

std::string SourceText(SourceKind kind, int lines);

/// The client task on a table without a key: a line executed twice is there twice. A trace is
/// enough for its resumes unless the values say otherwise, and no number of errors stops its runs.
class CountedTask : public ClientTask {
 public:
  /// @param values  further lines of the task's key; they win over its own.
  explicit CountedTask(DatabaseKind kind, const std::string& values = {});

  /// Empties the table, the run's folder and the report.
  void StartOver() const;

  /// Checks that every line 1 to `lines` is in the table, that the status is that of success and
  /// that nothing is left to resume from.
  /// @param most_twice  rows that may be there twice, one for each run that was cut short.
  void CheckDone(int lines, int most_twice) const;

  /// Resumes; where that is refused, does what the command says: types what it advises, or begins
  /// afresh where there is nothing to resume.
  Ending GoOn() const;

  /// Checks that each line up to the last one that the trace knows is in the table or among the
  /// rejected ones: what a run is to account for that ended with code 0 or 1.
  /// @param lines  of the source, all of which a code 0 accounts for.
  void CheckAccount(const Ending& ending, int lines) const;

  /// Mends every rejected line and resumes, until nothing is left to do; then checks as above.
  void CompleteAndCheck(int lines, int most_twice) const;

  /// Lines in the trace; 0 without one.
  int Traced() const;

  /// Starts a run and waits until it has traced so many lines; a run that ends before is a failure.
  std::unique_ptr<ChildProcess> StartAndTrace(int lines) const;

 private:
  void MendRejectedLines() const;
};

/// Whether everything is to be tried, and not only samples of it.
bool InLongForm();

/// `Ending` for messages.
std::string Shown(const Ending& ending);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_RESOURCES_COUNTEDTASK_H_
