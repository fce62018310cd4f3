#ifndef IMPORT_LEDGER_ERROR_FILE_H_
#define IMPORT_LEDGER_ERROR_FILE_H_

#include <cstdint>
#include <string>

#include "core/ModuleCommun.h"
#include "core/RunFile.h"
#include "import/target/Record.h"

namespace imptable {

/// The ".ERR" file: a line for each thing that is wrong with a record, whether this component or
/// the driver found it. Whatever is written here counts as an error of the run.
class ErrorFile : public FailureListener {
 public:
  /// Creates the file, or empties it.
  /// @param module  borrowed. @throws RuntimeFault  the file fault, as all other members do.
  ErrorFile(ModuleCommun& module, const std::string& path);

  void Write(std::int32_t line_number, const RecordDiagnostic& diagnostic);

  /// For a call that isn't made for a record: its lines have the number of the current source line.
  void OnDiagnostics(const std::vector<Diagnostic>& diagnostics) override;
  void OnFailedStep(Message message) override;

  void Close() { file_.Close(); }
  const std::string& path() const { return file_.path(); }

 private:
  std::string Sentence(const RecordDiagnostic& diagnostic) const;
  void WriteLine(std::int32_t line_number, const std::string& text);

  ModuleCommun& module_;
  RunFile file_;
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_ERROR_FILE_H_
