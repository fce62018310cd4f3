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

/// One import mode at work. It has separate steps, so that the run can check all that can be known
/// before it deletes rows. The steps before Run keep their report lines back until Run has written
/// the mode's banner. A fault inside the mode is reported, and the mode goes on with its closing
/// step.
class ImportLoop {
 public:
  /// @param module, session  borrowed.
  ImportLoop(ModuleCommun& module, OdbcSession& session, const Mode& mode);
  ImportLoop(const ImportLoop&) = delete;
  ImportLoop& operator=(const ImportLoop&) = delete;
  ~ImportLoop();

  /// Checks the settings, opens the source and, in a resumed run, takes the state of its chain;
  /// empties no file. @return false when that failed; Run then reports why.
  bool Check();

  /// Opens the side files and prepares the mode: columns, key, statements. To be called after a
  /// Check that returned true. @return as Check.
  bool Prepare();

  /// Runs from the banner to the closing counts. Reads the lines only when the steps before
  /// succeeded.
  void Run();

  /// To be called instead of Run: closes everything and leaves no side file of this run behind.
  void Abandon();

 private:
  class HeldReport;

  /// @param steps  returns what Guarded is to return. A fault in it is reported, and Guarded
  /// returns false.
  template <typename Steps>
  bool Guarded(Steps steps);
  /// Opens the data file.
  void OpenSource();

  /// Reads the source's lines and sees each to its outcome.
  void ReadLines();

  /// @param line  the next source line. @return its record. A record that is to be executed has no
  /// result yet, and its values are in the buffers.
  Record Take(std::string_view line);

  /// Executes the block's records that are to be executed and hands the whole block to the ledger.
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
  std::vector<Record> block_;  // the records that the ledger doesn't have yet
  std::int16_t error_limit_ = 0;
  bool ready_ = false;    // Prepare succeeded: the lines can be read
  bool reading_ = false;  // the mode has come to its first line
};

}  // namespace imptable

#endif  // IMPORT_IMPORT_LOOP_H_
