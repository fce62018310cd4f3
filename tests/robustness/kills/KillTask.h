#ifndef TESTS_ROBUSTNESS_KILLS_KILLTASK_H_
#define TESTS_ROBUSTNESS_KILLS_KILLTASK_H_

#include <string>
#include <vector>

#include "tests/robustness/kills/ChainModel.h"
#include "tests/robustness/kills/TableModel.h"
#include "tests/robustness/kills/Victim.h"
#include "tests/scenarios/Workplace.h"

namespace imptable {

/// Task T1 of scenario S1: CLIENTS.CSV, lines of code;name;born;amount, into table client. Triggers
/// of the table log every row that is inserted, changed or deleted, in the transaction that does
/// it.
class KillTask : public Workplace {
 public:
  /// @param traced  whether a trace is enough for a resume from the start ("RecTrace").
  KillTask(DatabaseKind kind, Work work, bool traced);

  DatabaseKind kind() const { return kind_; }
  Work work() const { return work_; }
  bool traced() const { return traced_; }

  /// As before the first run of all: settings, table, no side files.
  void Reset(const TableModel& table, int error_limit);
  /// The table alone.
  void ResetTable(const TableModel& table);
  void SetErrorLimit(int limit) const;
  /// Takes the table out of the command's sight, and back.
  void HideTable() const;
  void ShowTable() const;

  /// Makes every write to the registry fail, and undoes that.
  void BreakRegistry() const;
  void MendRegistry() const;

  /// Types a command.
  void Obey(const std::string& command) const { OutputOf(Typed(command)); }

  void Source(const std::string& text) const { folder().Write(kSource, text); }
  Fate Run(bool resume, const Kill& kill) const;
  /// Runs afresh and to the end. Counts all calls, and those before the first line's trace.
  Fate CountCalls() const;

  /// The side files' texts. A missing file counts as empty.
  SideTexts Left() const;
  void MendRejected(const std::string& text) const { folder().Write(kRejected, text); }
  /// Which of the files of a chain are there.
  std::string ChainFiles() const;
  /// ".REP", empty when there is none.
  std::string ChainText() const;
  /// "Etat".
  std::string Status() const;

  /// What took effect since the last call, in order; waits for statements of killed processes.
  std::vector<std::string> NewEffects();
  std::string Rows() const;

 private:
  static constexpr const char* kSource = "run/CLIENTS.CSV";
  static constexpr const char* kTrace = "run/CLIENTS.TRC";
  static constexpr const char* kRejected = "run/CLIENTS.LER";

  Invocation RunCommand(bool resume) const;
  std::string ReadIfThere(const std::string& name) const;

  DatabaseKind kind_;
  Work work_;
  bool traced_;
  std::string settings_;  // the registry file as loaded
  int seen_ = 0;          // number of the last log entry read
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_KILLTASK_H_
