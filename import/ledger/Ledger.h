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

/// Keeps record, in the task's side files, of what an import has done. ".ERR" has the diagnostics.
/// With the resume option, ".LER" has the rejected lines, ".TRC" the trace and ".REP" the state of
/// the whole chain. A resumed run also keeps copies of the previous run's lines and trace (".LEB",
/// ".TRB"). Every write has reached the operating system when it returns. A rejected line is
/// written before its trace line. Nobody else writes a line of these files.
/// @throws RuntimeFault  the file fault, from any member.
class Ledger {
 public:
  /// @param module, session  borrowed; must outlive the ledger. The session's present listener gets
  /// its failures whenever the ledger doesn't take them.
  Ledger(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), listener_(session.listener) {}
  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;
  ~Ledger() { TakeFailures(false); }

  /// In a resumed run, merges what the last run left into the chain's state. Empties no file, so
  /// that a damaged chain or trace is found while everything is as it was.
  void TakeChain();

  /// Opens the files: the diagnostics, and with the resume option the rejected lines and the trace,
  /// all emptied. To be called after TakeChain.
  void Open();

  /// Says whether failures of the data source go to ".ERR". They don't while it isn't open.
  void TakeFailures(bool taken);

  /// What a resumed run does with this source line; always kTake in a fresh run.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line) {
    return resume_ ? resume_->Decide(line_number, line) : ResumeDecision::kTake;
  }

  /// Writes down what became of records, in their order: the diagnostics of each, its text when it
  /// is rejected, and its trace. Counts them in the run's progress.
  void Settle(std::span<const Record> block);

  /// To be called when the run takes no more lines.
  /// @param source  the source's path. @param lines  how many of its lines were read. @param all
  /// whether it has no more.
  /// @throws RuntimeFault  input past end, naming the source, when it has no more but an earlier
  /// run came further or rejected a line beyond them.
  void End(const std::string& source, std::int32_t lines, bool all);

  /// For a resumed run that came to no line: puts the previous run's rejected lines and trace back,
  /// so that the user can still mend the lines. Does nothing in a fresh run.
  void RestorePrevious();

  /// Closes everything. In a fresh run, deletes the files that it has made, which are empty.
  void Discard();

  /// Closes every file, even when closing another one fails.
  /// @return the first fault, empty when there was none.
  std::optional<RuntimeFault> Close();

 private:
  /// Does nothing when there is no such file.
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
