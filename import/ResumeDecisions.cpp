#include "import/ResumeDecisions.h"

#include <utility>

namespace imptable {

ResumeDecisions::ResumeDecisions(std::unique_ptr<ChainReader> chain)
    : chain_(std::move(chain)), entry_(chain_->Next()) {}

ResumeDecision ResumeDecisions::Decide(std::int32_t line_number, std::string_view& line) {
  // Only now: the text that the last call gave was the entry's own.
  if (entry_taken_) entry_ = chain_->Next();
  entry_taken_ = entry_ && entry_->line_number == line_number;
  if (!entry_taken_) {
    const bool done = entry_ || line_number <= chain_->reached();
    return done ? ResumeDecision::kSkip : ResumeDecision::kTake;
  }
  if (!entry_->text) return ResumeDecision::kTake;
  line = *entry_->text;
  return ResumeDecision::kReplace;
}

}  // namespace imptable
