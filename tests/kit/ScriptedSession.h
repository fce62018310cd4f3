#ifndef TESTS_KIT_SCRIPTED_SESSION_H_
#define TESTS_KIT_SCRIPTED_SESSION_H_

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "odbc/Catalogue.h"
#include "tests/drivers/ScriptedDataSource.h"
#include "tests/kit/TestComponent.h"

namespace imptable {

/// A component and a data source of the scripted driver, without a task around them. Diagnostics
/// go to message boxes until a test asks for the report.
class ScriptedSession {
 public:
  explicit ScriptedSession(std::string_view script = {}) { source.Script(script); }

  bool Connect() { return odbc().ConnectDataSource(source.name(), "", ""); }

  /// Sends what is reported from now on to the report.
  void ReportToTheRun() {
    writer_ = component.host.CreateReportWriter();
    component.module().report_writer = writer_.get();
    component.state.SetExecutionMode(ExecutionMode::kRun);
  }

  /// The catalogue of the run's table.
  Catalogue catalogue() { return Catalogue(odbc(), {run().owner, run().table}); }

  OdbcSession& odbc() { return component.session(); }
  RunState& run() { return component.module().run; }

  /// The texts of the message boxes shown so far.
  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (const auto& warning : component.warnings.warnings()) texts.push_back(warning.text);
    return texts;
  }

  /// The names of the calls that reached the driver, oldest first.
  std::vector<std::string> Calls() const {
    std::vector<std::string> names;
    for (const std::string& line : source.LogLines()) {
      names.push_back(line.substr(0, line.find(' ')));
    }
    return names;
  }

  ScriptedDataSource source;
  TestComponent component;

 private:
  std::unique_ptr<ReportWriter> writer_;
};

}  // namespace imptable

#endif  // TESTS_KIT_SCRIPTED_SESSION_H_
