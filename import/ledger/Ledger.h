#ifndef IMPORT_LEDGER_LEDGER_H_
#define IMPORT_LEDGER_LEDGER_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/RunFile.h"
#include "import/ledger/ErrorFile.h"
#include "import/ledger/ResumeDecisions.h"
#include "import/target/Record.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// What is done of an import, in the task's side files: the diagnostics (".ERR"), and with the
/// resume option the rejected lines (".LER") and the trace (".TRC"); in a resumed run also the
/// copies of the previous run's (".LEB", ".TRB") and the state of the whole chain (".REP"). Every
/// write has reached the operating system when it returns, a rejected line before its trace line.
/// Nobody else writes a line of these files.
/// @throws RuntimeFault  the file fault, from any member.
class Ledger {
 public:
  /// @param module, session  borrowed; must outlive the ledger. The session's failures go where
  /// they go now, but while the ledger takes them.
  Ledger(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), listener_(session.listener) {}
  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;
  ~Ledger() { TakeFailures(false); }

  /// In a resumed run, takes what the last run left into the chain's state. Empties nothing: a
  /// damaged chain or trace is found while all is as it was.
  void TakeChain();

  /// Opens the files: the diagnostics, and with the resume option the rejected lines and the trace,
  /// all emptied. To be called after TakeChain.
  void Open();

  /// Whether failures of the data source go to ".ERR", which has to be open.
  void TakeFailures(bool taken);

  /// What a resumed run does with this source line; always kTake in a fresh run.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line) {
    return resume_ ? resume_->Decide(line_number, line) : ResumeDecision::kTake;
  }

  /// Takes down what became of records, in their order, and counts them in the run's progress: what
  /// there is to say about a record, its text when it is rejected, and its trace.
  void Settle(std::span<const Record> block);

  /// To be called when the run takes no more lines.
  /// @param source  its path. @param lines  that it had. @param all  whether it has no more.
  /// @throws RuntimeFault  input past end, naming the source, when it has no more but an earlier
  /// run had come further, or has rejected lines of it left.
  void End(const std::string& source, std::int32_t lines, bool all);

  /// Puts the previous run's rejected lines and trace back, for a resumed run that came to no line:
  /// emptied, there would be nothing to mend. Nothing in a fresh run.
  void RestorePrevious();

  /// Closes everything and deletes the files that a fresh run has made, which are empty.
  void Discard();

  /// Closes everything, whatever fails.
  /// @return the first fault, empty when there was none.
  std::optional<RuntimeFault> Close();

 private:
  /// Nothing when there is no such file.
  void CopyFile(const std::string& from, const std::string& to);
  void BeginChain();
  void MarkChain(ChainMark mark);
  void CopyPrevious();
  void RestoreFile(std::string_view copy, std::string_view extension);
  void Settle(const Record& record);
  void Trace(std::int32_t line_number, bool failed);
  void KeepRejected(std::string_view line);

  ModuleCommun& module_;
  OdbcSession& session_;
  FailureListener* listener_;
  std::optional<ErrorFile> errors_;
  std::optional<RunFile> rejected_;
  std::optional<RunFile> trace_;
  std::unique_ptr<ResumeDecisions> resume_;
  bool previous_copied_ = false;
  ChainMark previous_mark_ = ChainMark::kNone;
  std::string text_;  // of the line being written
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_LEDGER_H_
