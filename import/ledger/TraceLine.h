#ifndef IMPORT_LEDGER_TRACE_LINE_H_
#define IMPORT_LEDGER_TRACE_LINE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace imptable {

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

}  // namespace imptable

#endif  // IMPORT_LEDGER_TRACE_LINE_H_
