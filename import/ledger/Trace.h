#ifndef IMPORT_LEDGER_TRACE_H_
#define IMPORT_LEDGER_TRACE_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "import/source/LineReader.h"

namespace imptable {

/// A line's number has at least this many digits in the side files. A larger number takes more.
inline constexpr std::size_t kLineNumberDigits = 8;

/// Appends a number that isn't negative, zero-padded.
void AppendLineNumber(std::int32_t number, std::string& out);

/// @return false unless the whole text is such a number.
bool ReadLineNumber(std::string_view digits, std::int32_t& number);

/// One line of the trace: what became of one line of the source file.
struct TraceLine {
  std::int32_t line_number = 0;  // of the source, from 1
  bool failed = false;           // else inserted, changed, deleted or an ignored duplicate
  std::int32_t errors = 0;       // of the run so far
};

/// Line number and error count as eight digits each, the status ("0" done, "1" failed) between
/// them; a number that needs more digits takes them.
void AppendTraceLine(const TraceLine& trace, std::string& out);

/// @return nullopt when the text is no trace line.
std::optional<TraceLine> ParseTraceLine(std::string_view text);

/// Reads the trace of an earlier run, in order. A torn last line counts as absent.
class TraceReader {
 public:
  TraceReader(std::unique_ptr<LineReader> lines, std::string path);

  /// @return nullopt at the end.
  /// @throws RuntimeFault  type mismatch, naming the file and the line, for a line that is no trace
  /// line or whose number isn't above the one before; file faults.
  std::optional<TraceLine> Next();

 private:
  std::unique_ptr<LineReader> lines_;
  std::string path_;
  std::int64_t number_ = 0;       // of the line in the trace
  std::int32_t source_line_ = 0;  // that the trace line is about
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_TRACE_H_
