#ifndef IMPORT_MODES_MODE_ROUTINE_H_
#define IMPORT_MODES_MODE_ROUTINE_H_

#include <cstdint>
#include <string>

#include "core/MessageCatalogue.h"
#include "import/target/RecordParser.h"

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

  /// The text that opens the mode's report.
  virtual Message BannerMessage() const = 0;

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

}  // namespace imptable

#endif  // IMPORT_MODES_MODE_ROUTINE_H_
