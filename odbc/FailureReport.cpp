#include "odbc/FailureReport.h"

namespace imptable {
namespace {

void Warn(const ModuleCommun& module, const std::string& text) {
  module.platform.warning_box.Warn(text, module.MessageText(Message::kTitle));
}

}  // namespace

std::string DiagnosticText(const Diagnostic& diagnostic) {
  return '(' + SignedText(diagnostic.native_code) + ") " + diagnostic.text;
}

void FailureBoxes::OnDiagnostics(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& each : diagnostics) {
    if (!each.text.empty()) Warn(module_, DiagnosticText(each));
  }
}

void FailureBoxes::OnFailedStep(Message message) { Warn(module_, module_.MessageText(message)); }

void FailureReport::OnDiagnostics(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& each : diagnostics) {
    if (!each.text.empty()) module_.WriteReport(DiagnosticText(each), ReportKind::kError);
  }
  module_.run.error_reported = true;
}

void FailureReport::OnFailedStep(Message message) {
  module_.WriteReport(module_.MessageText(message), ReportKind::kError);
}

}  // namespace imptable
