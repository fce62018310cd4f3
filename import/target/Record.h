#ifndef IMPORT_TARGET_RECORD_H_
#define IMPORT_TARGET_RECORD_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Outcome.h"
#include "odbc/Diagnostic.h"

namespace imptable {

/// What is wrong with a record before the database sees it.
enum class Complaint : std::uint8_t {
  kBadRecord,  // its fields can't be turned into values
  kHoldsNul,   // one of its texts would be cut at a NUL
  kTooLong,    // this and all below: about the value of one column
  kNoNumber,
  kNoBit,
  kNoDate,
  kNoTime,
  kNoBytes,
  kNoWholeBits,
};

/// Something that is wrong with one record, as data. The error file makes the sentence.
struct RecordDiagnostic {
  enum class Stage : std::uint8_t {
    kBeforeExecution,  // `complaint` says what
    kExecution,        // `driver` says what; an empty text: the driver says nothing
  };

  Stage stage = Stage::kBeforeExecution;
  Complaint complaint = Complaint::kBadRecord;
  std::string column = {};  // of the table; empty when nothing is wrong with one column alone
  bool is_key = false;      // rows are looked for by that column
  std::string value = {};   // as it would be sent
  Diagnostic driver = {};
};

/// What became of one record, and what there is to say about it.
struct RecordResult {
  Outcome outcome = Outcome::kRejected;
  std::vector<RecordDiagnostic> diagnostics = {};
};

/// One record on its way from the source to the ledger.
struct Record {
  std::int32_t number = 0;     // of its line in the source, from 1
  std::string_view line = {};  // valid until the next one is read
  bool to_execute = false;     // its result is not known yet
  RecordResult result = {};
};

}  // namespace imptable

#endif  // IMPORT_TARGET_RECORD_H_
