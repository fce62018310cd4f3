#include "import/ledger/ErrorFile.h"

namespace imptable {
namespace {

/// Says what is wrong with a column's value; only for complaints about such a value.
ComponentText ValueText(Complaint complaint) {
  switch (complaint) {
    case Complaint::kTooLong:
      return ComponentText::kTooLong;
    case Complaint::kNoNumber:
      return ComponentText::kNoNumber;
    case Complaint::kNoBit:
      return ComponentText::kNoBit;
    case Complaint::kNoDate:
      return ComponentText::kNoDate;
    case Complaint::kNoTime:
      return ComponentText::kNoTime;
    case Complaint::kNoBytes:
      return ComponentText::kNoBytes;
    case Complaint::kNoWholeBits:
    case Complaint::kBadRecord:
    case Complaint::kHoldsNul:
      break;
  }
  return ComponentText::kNoWholeBits;
}

}  // namespace

ErrorFile::ErrorFile(ModuleCommun& module, const std::string& path)
    : module_(module), file_(RunFile::Create(module.platform.files, path)) {}

std::string ErrorFile::Sentence(const RecordDiagnostic& diagnostic) const {
  if (diagnostic.stage == RecordDiagnostic::Stage::kExecution) {
    return diagnostic.driver.text.empty() ? std::string() : DiagnosticText(diagnostic.driver);
  }
  switch (diagnostic.complaint) {
    case Complaint::kBadRecord:
      return module_.MessageText(Message::kBadRecord) + module_.run.delimiter +
             module_.MessageText(Message::kBadRecordEnd);
    case Complaint::kHoldsNul:
      return module_.Words(ComponentText::kHoldsNul);
    case Complaint::kTooLong:
    case Complaint::kNoNumber:
    case Complaint::kNoBit:
    case Complaint::kNoDate:
    case Complaint::kNoTime:
    case Complaint::kNoBytes:
    case Complaint::kNoWholeBits:
      break;
  }
  const auto noun = diagnostic.is_key ? ComponentText::kKey : ComponentText::kColumn;
  return module_.Words(ComponentText::kWrongValue,
                       {module_.Words(noun), diagnostic.column, diagnostic.value,
                        module_.Words(ValueText(diagnostic.complaint))});
}

void ErrorFile::WriteLine(std::int32_t line_number, const std::string& text) {
  file_.Write(module_.DateTimeText() + module_.MessageText(Message::kAtLine) +
              SignedText(line_number) + ' ' + text + std::string(SystemLineEnd()));
}

void ErrorFile::Write(std::int32_t line_number, const RecordDiagnostic& diagnostic) {
  module_.run.error_reported = true;
  const std::string sentence = Sentence(diagnostic);
  if (!sentence.empty()) WriteLine(line_number, sentence);
}

void ErrorFile::OnDiagnostics(const std::vector<Diagnostic>& diagnostics) {
  for (const Diagnostic& each : diagnostics) {
    if (!each.text.empty()) WriteLine(module_.run.line_number, DiagnosticText(each));
  }
  module_.run.error_reported = true;
}

void ErrorFile::OnFailedStep(Message message) {
  module_.WriteReport(module_.MessageText(message), ReportKind::kError);
}

}  // namespace imptable
