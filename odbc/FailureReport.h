#ifndef ODBC_FAILURE_REPORT_H_
#define ODBC_FAILURE_REPORT_H_

#include "core/ModuleCommun.h"
#include "odbc/Diagnostic.h"

namespace imptable {

/// Shows failures in message boxes: for dialogs.
class FailureBoxes : public FailureListener {
 public:
  /// @param module  borrowed.
  explicit FailureBoxes(const ModuleCommun& module) : module_(module) {}
  void OnDiagnostics(const std::vector<Diagnostic>& diagnostics) override;
  void OnFailedStep(Message message) override;

 private:
  const ModuleCommun& module_;
};

/// Writes failures to the execution report: for runs. A diagnostic counts as an error of the run.
class FailureReport : public FailureListener {
 public:
  /// @param module  borrowed.
  explicit FailureReport(ModuleCommun& module) : module_(module) {}
  void OnDiagnostics(const std::vector<Diagnostic>& diagnostics) override;
  void OnFailedStep(Message message) override;

 private:
  ModuleCommun& module_;
};

}  // namespace imptable

#endif  // ODBC_FAILURE_REPORT_H_
