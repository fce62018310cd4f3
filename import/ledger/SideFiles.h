#ifndef IMPORT_LEDGER_SIDE_FILES_H_
#define IMPORT_LEDGER_SIDE_FILES_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "import/ledger/ResumeDecisions.h"
#include "import/source/LineReader.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// The files of one import: the source, the diagnostics (".ERR"), and with the resume option the
/// rejected lines (".LER") and the trace (".TRC"); in a resumed run also the copies of the previous
/// run's (".LEB", ".TRB") and the state of the whole chain (".REP"). Every write has reached the
/// operating system when it returns, a rejected line before its trace line.
/// @throws RuntimeFault  the file fault, from any member.
class SideFiles {
 public:
  /// @param module, session  borrowed; must outlive the files.
  SideFiles(ModuleCommun& module, OdbcSession& session) : module_(module), session_(session) {}
  SideFiles(const SideFiles&) = delete;
  SideFiles& operator=(const SideFiles&) = delete;
  ~SideFiles() { session_.error_file = nullptr; }

  /// Opens the source and, in a resumed run, takes what the last run left into the chain's state.
  /// Empties nothing: a damaged chain or trace is found while all is as it was.
  void OpenSource();

  /// Opens the others: the diagnostics, and with the resume option the rejected lines and the
  /// trace, all emptied. To be called after OpenSource.
  void Open();

  /// Whether the diagnostics of the data source go to ".ERR", which has to be open.
  void TakeDiagnostics(bool taken);

  LineReader& source() { return *source_; }

  /// What a resumed run does with this source line; always kTake in a fresh run.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line) {
    return resume_ ? resume_->Decide(line_number, line) : ResumeDecision::kTake;
  }

  /// Traces a line as done.
  void Done(std::int32_t line_number, std::int64_t errors) {
    if (trace_) Trace(line_number, false, errors);
  }

  /// Keeps a failed line and traces it.
  void Reject(std::string_view line, std::int32_t line_number, std::int64_t errors);

  /// Writes the diagnostic of a line that can't be parsed.
  void ReportParseFailure(std::int32_t line_number);

  /// To be called when the run takes no more lines.
  /// @param lines  that it had of the source. @param all  whether the source has no more.
  /// @throws RuntimeFault  input past end, naming the source, when it has no more but an earlier
  /// run had come further, or has rejected lines of it left.
  void EndOfLines(std::int32_t lines, bool all);

  /// Puts the previous run's rejected lines and trace back, for a resumed run that came to no line:
  /// emptied, there would be nothing to mend. Nothing in a fresh run.
  void RestorePrevious();

  /// Closes everything and deletes the files that a fresh run has made, which are empty.
  void Discard();

  /// Closes everything, whatever fails.
  /// @return the first fault, empty when there was none.
  std::optional<RuntimeFault> Close();

 private:
  std::unique_ptr<LineReader> OpenForReading(const std::string& path);
  /// Nothing when there is no such file.
  void CopyFile(const std::string& from, const std::string& to);
  void AdvanceChain();
  void BeginChain();
  void MarkChain(ChainMark mark);
  void CopyPrevious();
  void RestoreFile(std::string_view copy, std::string_view extension);
  void Trace(std::int32_t line_number, bool failed, std::int64_t errors);

  ModuleCommun& module_;
  OdbcSession& session_;
  std::unique_ptr<LineReader> source_;
  std::optional<RunFile> errors_;
  std::optional<RunFile> rejected_;
  std::optional<RunFile> trace_;
  std::unique_ptr<ResumeDecisions> resume_;
  bool previous_copied_ = false;
  ChainMark previous_mark_ = ChainMark::kNone;
  std::string text_;  // of the line being written
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_SIDE_FILES_H_
