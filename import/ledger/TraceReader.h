#ifndef IMPORT_LEDGER_TRACE_READER_H_
#define IMPORT_LEDGER_TRACE_READER_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "import/ledger/TraceLine.h"
#include "import/source/LineReader.h"

namespace imptable {

/// Reads the trace of an earlier run, in order. A torn last line counts as absent.
class TraceReader {
 public:
  TraceReader(std::unique_ptr<LineReader> lines, std::string path);

  /// @return nullopt at the end.
  /// @throws RuntimeFault  type mismatch, naming the file and the line, for a line that is no trace
  /// line or whose number doesn't follow; file faults.
  std::optional<TraceLine> Next();

 private:
  std::unique_ptr<LineReader> lines_;
  std::string path_;
  std::int64_t number_ = 0;       // of the line in the trace
  std::int32_t source_line_ = 0;  // that it is about
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_TRACE_READER_H_
