#include "import/ResumeFiles.h"

#include <string>
#include <utility>

#include "plugin/core/RuntimeFault.h"

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

ResumeFiles::ResumeFiles(std::unique_ptr<TraceReader> trace, std::unique_ptr<LineReader> rejected)
    : trace_(std::move(trace)), rejected_(std::move(rejected)), pending_(trace_->Next()) {}

ResumeDecision ResumeFiles::Decide(std::int32_t line_number, std::string_view& line) {
  if (!pending_) return ResumeDecision::kTake;
  if (pending_->line_number > line_number) return ResumeDecision::kSkip;
  const bool failed = pending_->failed;
  pending_ = trace_->Next();
  if (!failed) return ResumeDecision::kSkip;
  return rejected_->Next(line) ? ResumeDecision::kReplace : ResumeDecision::kTake;
}

}  // namespace imptable
