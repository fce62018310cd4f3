#ifndef TESTS_SCENARIOS_CLIENTTASK_H_
#define TESTS_SCENARIOS_CLIENTTASK_H_

#include <string>
#include <string_view>
#include <vector>

#include "tests/scenarios/Workplace.h"

namespace imptable {

/// Task T1 of scenario S1: CLIENTS.CSV, lines of code;name, into a table client whose code is its
/// primary key and whose name may not be null.
class ClientTask : public Workplace {
 public:
  /// @param values  further lines of the task's key as in an export file; they win over its own.
  explicit ClientTask(DatabaseKind kind, const std::string& values = {});

  void Source(std::string_view bytes) const { Write("CLIENTS.CSV", bytes); }

  /// In English, with report.txt as the report.
  Invocation RunCommand(const std::vector<std::string>& options = {}) const;
  Ending Run(const std::vector<std::string>& options = {}) const {
    return Finish(RunCommand(options));
  }

  /// Of the run's folder.
  void Write(const std::string& name, std::string_view bytes) const;
  /// With line feeds alone at the ends of lines.
  std::string Read(const std::string& name) const;
  bool Exists(const std::string& name) const { return folder().Exists("run/" + name); }

  std::string Report() const { return folder().Read("report.txt"); }
  /// The "Etat" value.
  std::string Status() const;
  std::string Rows(const std::string& query) const { return database().Rows(query + ";\n"); }
};

/// Lines of code;name with these codes, each with its line end.
std::string ClientLines(int first, int last);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_CLIENTTASK_H_
