#ifndef IMPORT_IMPORT_LOOP_H_
#define IMPORT_IMPORT_LOOP_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "import/ledger/Ledger.h"
#include "import/modes/ModeTable.h"
#include "import/source/LineReader.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// One import mode at work. Its steps are apart, so that the run can delete what is to go first
/// once nothing that can be known stands against the import. What the steps before Run have to
/// report comes after the mode's banner. A fault inside the mode is reported and the mode goes on
/// with its closing step.
class ImportLoop {
 public:
  /// @param module, session  borrowed.
  ImportLoop(ModuleCommun& module, OdbcSession& session, const Mode& mode);
  ImportLoop(const ImportLoop&) = delete;
  ImportLoop& operator=(const ImportLoop&) = delete;
  ~ImportLoop();

  /// Checks the settings, opens the source and, in a resumed run, takes the state of its chain;
  /// empties nothing. @return false when that failed; Run then reports why.
  bool Check();

  /// Opens the side files and prepares the mode: columns, key, statements. To be called after a
  /// Check that found nothing. @return as Check.
  bool Prepare();

  /// From the banner to the closing counts; reads the lines when the steps before found nothing.
  void Run();

  /// In place of Run: closes everything and leaves no side file behind that this run made.
  void Abandon();

 private:
  class HeldReport;

  /// @param steps  give what Guarded gives; a fault in them is reported and gives false.
  template <typename Steps>
  bool Guarded(Steps steps);
  /// Opens the data file.
  void OpenSource();

  /// Reads the source's lines and sees each to its outcome.
  void ReadLines();

  /// @param line  the next of the source. @return its record, with a result unless it is to be
  /// executed: its values are in the buffers then.
  Record Take(std::string_view line);

  /// Executes what is to be executed of the block and hands all of it to the ledger.
  void FinishBlock();

  void RequireWhole() const;
  void RestorePrevious();
  void ReportFault(const RuntimeFault& fault);
  void ReportCounts();
  void ReportSuccess(const std::string& text);
  std::string CountText(const ClosingCount& count) const;

  ModuleCommun& module_;
  const Mode& mode_;
  std::unique_ptr<ModeSteps> steps_;
  std::unique_ptr<HeldReport> held_;
  std::unique_ptr<LineReader> source_;
  Ledger ledger_;
  std::vector<Record> block_;  // of records that are on their way
  std::int16_t error_limit_ = 0;
  bool ready_ = false;    // nothing stands against reading the lines
  bool reading_ = false;  // the mode has come to its lines
};

}  // namespace imptable

#endif  // IMPORT_IMPORT_LOOP_H_
