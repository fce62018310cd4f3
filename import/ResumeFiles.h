#ifndef IMPORT_RESUME_FILES_H_
#define IMPORT_RESUME_FILES_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "import/LineReader.h"
#include "import/TraceLine.h"

namespace imptable {

/// Reads the trace of an earlier run, in order. A torn last line counts as absent.
class TraceReader {
 public:
  explicit TraceReader(std::unique_ptr<LineReader> lines, std::string path);

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

/// What a resumed run does with a line of its source.
enum class ResumeDecision : std::uint8_t {
  kTake,     // the earlier run did not come to it, or its rejected text is gone
  kSkip,     // done earlier
  kReplace,  // rejected earlier: its text, as mended by the user, takes its place
};

/// Decides, line by line, by the copies of the earlier run's trace and rejected lines.
class ResumeFiles {
 public:
  ResumeFiles(std::unique_ptr<TraceReader> trace, std::unique_ptr<LineReader> rejected);

  /// To be called for every source line, in order.
  /// @param line  replaced by the rejected line when the answer is kReplace.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line);

 private:
  std::unique_ptr<TraceReader> trace_;
  std::unique_ptr<LineReader> rejected_;
  std::optional<TraceLine> pending_;
};

}  // namespace imptable

#endif  // IMPORT_RESUME_FILES_H_
