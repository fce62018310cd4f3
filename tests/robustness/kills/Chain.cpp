#include "tests/robustness/kills/Chain.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

constexpr int kDone = 0;
constexpr int kHadErrors = 1;
constexpr int kRefused = 3;

constexpr const char* kSucceeded = "2";
constexpr const char* kFailed = "3";

std::string KillText(const Kill& kill) {
  switch (kill.at) {
    case Kill::At::kNever:
      return "no kill";
    case Kill::At::kMoment:
      return "kill after " + std::to_string(kill.moment.count()) + " us";
    case Kill::At::kCall:
      return "kill at call " + std::to_string(kill.call);
  }
  return {};
}

}  // namespace

void Chain::Check(bool holds, const std::string& what, const std::string& expected,
                  const std::string& found) const {
  if (holds) return;
  std::string text = what;
  if (expected != found) {
    text.append("\n--- expected\n").append(expected).append("--- found\n").append(found);
  }
  throw ChainFault(text);
}

void Chain::Go(const ChainPlan& plan) {
  ++figures_.chains;
  Begin(plan);
  if (!plan.before.empty() && !GoThrough(plan.before)) {
    source_ = std::make_unique<SourceLines>(random_, task_.work(), plan.lines, plan.bad_share);
    table_ = std::make_unique<TableModel>(source_->table());
    task_.ResetTable(*table_);
    task_.Source(Joined(source_->texts()));
    state_ = {};
    foreign_ = !left_.trace.empty();
    logged_.clear();
    took_effect_.clear();
    figures_.lines += plan.lines;
    story_ += "that chain is given up: new data, new table\n";
  } else if (!plan.before.empty()) {
    return CheckEnd(true);
  }
  CheckEnd(GoThrough(plan.attempts));
}

void Chain::Begin(const ChainPlan& plan) {
  source_ = std::make_unique<SourceLines>(random_, task_.work(), plan.lines, plan.bad_share);
  table_ = std::make_unique<TableModel>(source_->table());
  task_.Reset(*table_, kNoLimit);
  task_.Source(Joined(source_->texts()));
  figures_.lines += plan.lines;
}

bool Chain::GoThrough(const std::vector<Attempt>& attempts) {
  int limit = kNoLimit;
  bool first = true;
  for (const Attempt& attempt : attempts) {
    if (!first) Mend(attempt);
    if (attempt.error_limit != limit) {
      limit = attempt.error_limit;
      task_.SetErrorLimit(limit);
    }
    Ended ended = TryOnce(attempt, !first && !foreign_);
    if (ended == Ended::kRefused) ended = TryOnce(attempt, false);
    if (ended == Ended::kDone) return true;
    first = false;
  }
  return false;
}

void Chain::Mend(const Attempt& attempt) {
  if (foreign_ || attempt.mended <= 0) return;
  const ChainState known = Merged(state_, left_, source_->texts());
  std::vector<int> numbers;
  for (const Traced& traced : ReadTrace(left_.trace)) {
    if (traced.failed) numbers.push_back(traced.line);
  }
  std::vector<std::string> texts = LinesOf(left_.rejected);
  for (std::size_t at = 0; at < texts.size(); ++at) {
    if (!Chance(random_, attempt.mended)) continue;
    // One more than the trace tells: of the line that was in hand.
    const int number = at < numbers.size() ? numbers[at] : known.reached + 1;
    // Nobody mends what its key refuses because the row is there already.
    if (took_effect_.contains(number) || number > static_cast<int>(source_->texts().size())) {
      continue;
    }
    texts[at] = source_->Mended(random_, number, Chance(random_, attempt.badly));
    ++figures_.mended;
    story_ += "line " + std::to_string(number) + " mended to " + texts[at] + '\n';
  }
  left_.rejected = Joined(texts);
  // Some editors leave the last line without an end.
  if (!texts.empty() && Chance(random_, 0.1)) left_.rejected.pop_back();
  if (!texts.empty()) task_.MendRejected(left_.rejected);
}

Chain::Ended Chain::TryOnce(const Attempt& attempt, bool resume) {
  const ChainState merged = resume ? Merged(state_, left_, source_->texts()) : ChainState{};
  const ExpectedRun expected =
      Expect(*table_, PlanOf(merged, source_->texts()), attempt.error_limit);
  const Kill kill = attempt.kill(expected.lines.size());
  story_ += (resume ? "resume" : "run afresh") + std::string(" of ") +
            std::to_string(expected.lines.size()) + " lines, " + KillText(kill);
  ++figures_.runs;
  if (resume) ++figures_.resumes;
  const Fate fate = task_.Run(resume, kill);
  story_ += fate.killed ? ": killed\n" : ": ended with " + std::to_string(fate.code) + '\n';
  if (!fate.killed) return AfterEnd(fate, expected, merged);
  ++kills_;
  ++figures_.kills;
  if (kill.at == Kill::At::kMoment) ++figures_.kills_at_moments;
  return AfterKill(expected, merged);
}

std::size_t Chain::TakeEffects(const ExpectedRun& expected, std::size_t traced,
                               const std::vector<std::string>& effects) {
  const std::vector<std::string> sure = expected.Effects(traced);
  const bool begins =
      effects.size() >= sure.size() && std::equal(sure.begin(), sure.end(), effects.begin());
  Check(begins, "Not what the trace says took effect", Joined(sure), Joined(effects));
  const std::vector<std::string> more(effects.begin() + static_cast<std::ptrdiff_t>(sure.size()),
                                      effects.end());
  if (!more.empty()) {
    const std::vector<std::string> next = traced < expected.lines.size()
                                              ? expected.lines[traced].outcome.effects
                                              : std::vector<std::string>();
    Check(more == next, "More took effect than the line in hand", Joined(next), Joined(more));
  }
  for (std::size_t at = 0; at < traced; ++at) Execute(expected.lines[at].line);
  if (!more.empty()) Execute(expected.lines[traced].line);
  logged_ += Joined(effects);
  return more.size();
}

void Chain::Execute(const PlannedLine& line) {
  if (took_effect_.contains(line.number)) {
    ++twice_;
    ++figures_.twice;
    story_ += "line " + std::to_string(line.number) + " executed again\n";
  }
  const LineOutcome outcome = table_->Execute(line.text);
  if (!outcome.effects.empty()) took_effect_.insert(line.number);
  if (outcome.failed) ++figures_.rejected;
}

Chain::Ended Chain::AfterKill(const ExpectedRun& expected, const ChainState& merged) {
  const SideTexts now = task_.Left();
  const std::vector<std::string> effects = task_.NewEffects();
  if (task_.Status() == kSucceeded) {
    Check(expected.errors == 0, "Said to have succeeded in spite of errors");
    TakeEffects(expected, expected.lines.size(), effects);
    ++figures_.kills_after_lines;
    return Ended::kDone;
  }
  if (now.trace == left_.trace && !now.trace.empty() && effects.empty()) {
    // The run hadn't come to its own files, unless to the first of them.
    ++figures_.kills_before_lines;
    if (!foreign_ && now.rejected != left_.rejected) state_ = merged;
    left_ = now;
    return Ended::kGoOn;
  }
  foreign_ = false;
  const std::size_t traced = ReadTrace(now.trace).size();
  const std::size_t most = std::min(traced, expected.lines.size());
  Check(now.trace == expected.Trace(most), "Not the trace of that run", expected.Trace(most),
        now.trace);
  const bool rejected_too = most < expected.lines.size() && expected.lines[most].outcome.failed;
  Check(now.rejected == expected.RejectedText(most) ||
            (rejected_too && now.rejected == expected.RejectedText(most + 1)) ||
            (most == 0 && now.rejected == left_.rejected),
        "Not the rejected lines of that run", expected.RejectedText(most), now.rejected);
  const std::size_t in_hand = TakeEffects(expected, traced, effects);
  if (in_hand > 0) ++figures_.in_hand;
  figures_.most_in_hand = std::max(figures_.most_in_hand, static_cast<std::int64_t>(in_hand));
  if (traced == 0 && effects.empty()) ++figures_.kills_before_lines;
  if (traced == expected.lines.size()) ++figures_.kills_after_lines;
  state_ = merged;
  left_ = now;
  return Ended::kGoOn;
}

Chain::Ended Chain::AfterEnd(const Fate& fate, const ExpectedRun& expected,
                             const ChainState& merged) {
  const SideTexts now = task_.Left();
  const std::vector<std::string> effects = task_.NewEffects();
  if (fate.code == kRefused) {
    Check(merged == ChainState{} && now == left_ && effects.empty(),
          "A resume was refused although lines were traced: " + fate.said);
    return Ended::kRefused;
  }
  foreign_ = false;
  const std::size_t in_hand = TakeEffects(expected, expected.lines.size(), effects);
  Check(in_hand == 0, "More took effect than a whole run does");
  const bool done = expected.errors == 0;
  Check(fate.code == (done ? kDone : kHadErrors),
        "Ended with " + std::to_string(fate.code) + ": " + fate.said);
  Check(task_.Status() == (done ? kSucceeded : kFailed), "Status " + task_.Status());
  if (done) {
    Check(task_.ChainFiles().empty(), "Side files that should be gone: " + task_.ChainFiles());
    return Ended::kDone;
  }
  const std::size_t count = expected.lines.size();
  Check(now.trace == expected.Trace(count), "Not the trace of a whole run", expected.Trace(count),
        now.trace);
  Check(now.rejected == expected.RejectedText(count), "Not the rejected lines of a whole run",
        expected.RejectedText(count), now.rejected);
  if (expected.stopped) ++figures_.limit_stops;
  state_ = merged;
  left_ = now;
  return Ended::kGoOn;
}

void Chain::CheckEnd(bool finished) {
  if (finished) ++figures_.finished;
  const std::string rows = task_.Rows();
  const int reached = finished ? static_cast<int>(source_->texts().size())
                               : Merged(state_, left_, source_->texts()).reached;
  std::string lost;
  for (const SourceLines::Sure& sure : source_->sure()) {
    if (sure.number > reached || logged_.find(sure.log) != std::string::npos) continue;
    ++figures_.lost;
    lost += ' ' + std::to_string(sure.number);
  }
  Check(lost.empty(), "Lines lost:" + lost);
  Check(rows == table_->Text(), "Not the table of the model", table_->Text(), rows);
  Check(twice_ <= kills_,
        std::to_string(twice_) + " lines executed twice for " + std::to_string(kills_) + " kills");
}

}  // namespace imptable
