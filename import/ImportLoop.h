#ifndef IMPORT_IMPORT_LOOP_H_
#define IMPORT_IMPORT_LOOP_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "import/RecordParser.h"
#include "import/SideFiles.h"
#include "odbc/ModuleODBC.h"

namespace imptable {

/// What became of one line.
struct LineResult {
  bool rejected = false;

  /// The counter of the run's progress that goes up once the line is traced; null for none.
  std::int64_t* counter = nullptr;
};

/// What one import mode does its own way; the loop does the rest.
class ModeRoutine {
 public:
  virtual ~ModeRoutine() = default;

  /// Number of the catalogue text that opens the mode's report.
  virtual std::int32_t BannerMessage() const = 0;

  /// What the mode itself asks of the settings.
  /// @throws RuntimeFault  naming the setting.
  virtual void CheckSettings() const {}

  /// Everything that is known before the first line: columns, statements, bindings, parser.
  /// @return false when there is nothing to run; the reason has been reported.
  virtual bool Prepare() = 0;

  virtual RecordParser& Parser() = 0;

  /// Executes the record in the buffers; reports the diagnostics of a failure.
  virtual LineResult ExecuteLine() = 0;

  virtual void DropStatements() = 0;

  /// The closing counts, as they end both the failed and the successful closing line.
  virtual std::string CountsText() const = 0;

  /// Writes the closing line of an import without errors.
  virtual void ReportSuccess(const std::string& text) = 0;

  /// A fault inside the mode counts as a failed deletion before the import.
  virtual bool FaultFailsDeletion() const { return true; }
};

/// One import mode at work. Its steps are apart, so that the run can delete what is to go first
/// once nothing that can be known stands against the import. What the steps before Run have to
/// report comes after the mode's banner. A fault inside the mode is reported and the mode goes on
/// with its closing step.
class ImportLoop {
 public:
  /// @param module, session  borrowed.
  ImportLoop(ModuleCommun& module, OdbcSession& session, std::unique_ptr<ModeRoutine> mode);
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
  void ReadLines();
  void RequireWhole(const LineReader& source) const;
  void RestorePrevious();
  void ImportLine(RecordParser& parser, std::string_view line);
  /// Reports a line of which the driver would send a part.
  /// @return whether it is one.
  bool WouldBeCut(const RecordParser& parser, std::string_view line);
  void ReportFault(const RuntimeFault& fault);
  void ReportCounts();

  ModuleCommun& module_;
  OdbcSession& session_;
  std::unique_ptr<ModeRoutine> mode_;
  std::unique_ptr<HeldReport> held_;
  SideFiles files_;
  std::int16_t error_limit_ = 0;
  bool ready_ = false;    // nothing stands against reading the lines
  bool reading_ = false;  // the mode has come to its lines
};

}  // namespace imptable

#endif  // IMPORT_IMPORT_LOOP_H_
