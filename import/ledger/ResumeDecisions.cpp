#include "import/ledger/ResumeDecisions.h"

#include <utility>

namespace imptable {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

ResumeDecisions::ResumeDecisions(std::unique_ptr<ChainReader> chain, bool skip_mark)
    : chain_(std::move(chain)), skip_mark_(skip_mark), entry_(chain_->Next()) {}

ResumeDecision ResumeDecisions::Decide(std::int32_t line_number, std::string_view& line) {
  // Not before: the text that the last call gave is valid until the next entry is read.
  if (entry_taken_) entry_ = chain_->Next();
  entry_taken_ = entry_ && entry_->line_number == line_number;
  if (!entry_taken_) {
    const bool done = entry_ || line_number <= chain_->reached();
    return done ? ResumeDecision::kSkip : ResumeDecision::kTake;
  }
  if (!entry_->text) return ResumeDecision::kTake;
  std::string_view text = *entry_->text;
  if (skip_mark_ && text.starts_with(kByteOrderMark) && !line.starts_with(kByteOrderMark)) {
    text.remove_prefix(kByteOrderMark.size());
  }
  line = text;
  return ResumeDecision::kReplace;
}

bool ResumeDecisions::MissesLines(std::int32_t lines) {
  if (entry_taken_) entry_ = chain_->Next();
  entry_taken_ = false;
  return entry_ || lines < chain_->reached();
}

}  // namespace imptable
