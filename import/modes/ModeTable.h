#ifndef IMPORT_MODES_MODE_TABLE_H_
#define IMPORT_MODES_MODE_TABLE_H_

#include <cstdint>
#include <memory>
#include <optional>

#include "core/ImportSettings.h"
#include "core/MessageCatalogue.h"
#include "core/Outcome.h"
#include "import/modes/ModeSteps.h"

namespace imptable {

/// How the closing line of an import without errors is written.
enum class SuccessLine : std::uint8_t {
  kInformation,
  kSuccess,
  kOwnWriter,  // as an information, by the component's own writer
};

/// A count that closes the report of an import.
struct ClosingCount {
  Outcome outcome = Outcome::kInserted;
  Message text = Message::kCopied;  // the text after the number
  bool leading_blank = false;       // in place of a plus sign
};

/// What one mode does its own way; the loop does the rest.
struct Mode {
  ImportMode number = ImportMode::kInsert;
  Message banner = Message::kInsertBanner;  // the first line of its report
  ClosingCount count = {};
  std::optional<ClosingCount> second_count = {};
  SuccessLine success = SuccessLine::kInformation;

  /// A fault inside the mode counts as a failed deletion before the import.
  bool fault_fails_deletion = true;

  /// The mode can ignore duplicates. The error code by which the task tells them has to be a
  /// number.
  bool ignores_duplicates = false;

  std::unique_ptr<ModeSteps> (*make_steps)(ModuleCommun& module, OdbcSession& session) = nullptr;
};

/// @return null for a mode that imports nothing.
const Mode* FindMode(ImportMode number);

}  // namespace imptable

#endif  // IMPORT_MODES_MODE_TABLE_H_
