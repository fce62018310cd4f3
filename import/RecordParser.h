#ifndef IMPORT_RECORD_PARSER_H_
#define IMPORT_RECORD_PARSER_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "import/RecordPlan.h"

namespace imptable {

enum class ParseResult : std::uint8_t {
  kFailed,  // the line can't be converted
  kEmpty,   // converted, but the record is empty: nothing to execute
  kRecord,  // the buffers hold a record to execute
};

/// Splits one delimited line into its fields; no text qualifier is recognised.
/// Shape:   one view per field, in file order, into `line`; valid while `line` is.
/// Stops:   after `most` fields, when the line has more.
/// Returns: at least one field. After a delimiter of several characters the next field starts at
///          the delimiter's second one.
void SplitDelimited(std::string_view line, std::string_view delimiter, std::size_t step,
                    std::size_t most, std::vector<std::string_view>& fields);

/// Splits one fixed-width line.
/// Units:   widths count characters of the code page, not bytes.
/// Returns: one field a width; fields past the end of the line are empty.
void SplitFixedWidth(std::string_view line, const std::vector<std::size_t>& widths, bool utf8,
                     std::vector<std::string_view>& fields);

/// Turns lines of the source file into the values of the bound parameter buffers.
class RecordParser {
 public:
  explicit RecordParser(RecordPlan plan);

  /// A line costs no allocation, but for a value that is longer than any before it.
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

#endif  // IMPORT_RECORD_PARSER_H_
