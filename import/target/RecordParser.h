#ifndef IMPORT_TARGET_RECORD_PARSER_H_
#define IMPORT_TARGET_RECORD_PARSER_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "import/target/RecordPlan.h"

namespace imptable {

enum class ParseResult : std::uint8_t {
  kFailed,  // the line can't be converted
  kEmpty,   // converted, but the record is empty: nothing to execute
  kRecord,  // the buffers hold a record to execute
};

/// Turns lines of the source file into the values of the bound parameter buffers.
class RecordParser {
 public:
  explicit RecordParser(RecordPlan plan);

  /// Allocates nothing, except for a value that is longer than any before it.
  ParseResult ParseRecord(std::string_view line);

  /// Whether one of the texts that the last record put into the buffers holds a NUL.
  bool HasTextWithNul() const;

 private:
  bool FillColumn(const FieldPlan& field, std::string_view value, bool& empty);
  bool FillDate(const FieldPlan& field, std::string_view value);

  RecordPlan plan_;
  std::size_t delimiter_step_ = 1;  // bytes of the delimiter's first character
  std::vector<std::string_view> fields_;
  std::string scratch_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_RECORD_PARSER_H_
