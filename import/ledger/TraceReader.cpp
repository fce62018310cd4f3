#include "import/ledger/TraceReader.h"

#include <string_view>
#include <utility>

#include "core/RuntimeFault.h"

namespace imptable {

TraceReader::TraceReader(std::unique_ptr<LineReader> lines, std::string path)
    : lines_(std::move(lines)), path_(std::move(path)) {}

std::optional<TraceLine> TraceReader::Next() {
  std::string_view text;
  if (!lines_->Next(text) || !lines_->ended()) return std::nullopt;
  ++number_;
  auto trace = ParseTraceLine(text);
  if (!trace || trace->line_number <= source_line_) {
    throw RuntimeFault(FaultNumber::kTypeMismatch, path_ + ", " + std::to_string(number_));
  }
  source_line_ = trace->line_number;
  return trace;
}

}  // namespace imptable
