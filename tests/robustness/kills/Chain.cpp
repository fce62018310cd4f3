#include "tests/robustness/kills/Chain.h"

#include <algorithm>
#include <utility>

#include "tests/scenarios/Advice.h"

namespace imptable {
namespace {

constexpr int kDone = 0;
constexpr int kHadErrors = 1;
constexpr int kResumeRefused = 3;
constexpr int kNotStored = 4;

constexpr const char* kVoid = "VOID";  // begins the state of a chain that is over

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
    case Kill::At::kBytes:
      return "kill after " + std::to_string(kill.bytes) + " bytes of trace";
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
    foreign_ = task_.ChainText();
    if (left_.trace.empty() && foreign_->empty()) foreign_.reset();
    logged_.clear();
    took_effect_.clear();
    untraced_.clear();
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
  killed_.clear();
  for (std::size_t at = 0; at < attempts.size(); ++at) {
    const Attempt& attempt = attempts[at];
    const bool first = at == 0;
    const std::int64_t kills_before = kills_;
    if (!first) Mend(attempt);
    if (attempt.error_limit != limit) {
      limit = attempt.error_limit;
      task_.SetErrorLimit(limit);
    }
    // Don't resume from another chain's trace. But if that chain says that it is over, a resume
    // must be refused: try that.
    Ended ended = TryOnce(attempt, !first && (!foreign_ || OtherChainIsOver()));
    if (ended == Ended::kAdvised) ended = TryOnce(attempt, true);
    if (ended == Ended::kRefused) ended = TryOnce(attempt, false);
    if (kills_ > kills_before) killed_.insert(at);
    if (ended == Ended::kDone) return true;
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
    // A rejected line beyond those of the trace is the line that was in hand.
    const int number = at < numbers.size() ? numbers[at] : known.reached + 1;
    // Nobody mends a line that was refused because its row is there already.
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
  const ChainState merged =
      resume && !foreign_ ? Merged(state_, left_, source_->texts()) : ChainState{};
  const ExpectedRun expected =
      attempt.table_missing
          ? ExpectedRun{.errors = 1, .came_to_lines = false}
          : Expect(*table_, PlanOf(merged, source_->texts()), attempt.error_limit);
  const Kill kill = attempt.kill(expected.lines.size());
  story_ += (resume ? "resume" : "run afresh") + std::string(" of ") +
            std::to_string(expected.lines.size()) + " lines" +
            (attempt.table_missing ? ", no table" : "") +
            (attempt.registry_fails ? ", no registry" : "") + ", " + KillText(kill);
  ++figures_.runs;
  if (resume) ++figures_.resumes;
  const Fate fate = Run(attempt, resume, kill);
  story_ += fate.killed ? ": killed\n" : ": ended with " + std::to_string(fate.code) + '\n';
  if (!fate.killed) {
    Check(!(resume && foreign_) || fate.code == kResumeRefused,
          "A resume was not refused although its chain was over: " + fate.said);
    return AfterEnd(attempt, fate, expected, merged);
  }
  ++kills_;
  ++figures_.kills;
  if (kill.at == Kill::At::kMoment) ++figures_.kills_at_moments;
  return AfterKill(expected, merged);
}

Fate Chain::Run(const Attempt& attempt, bool resume, const Kill& kill) {
  if (attempt.table_missing) task_.HideTable();
  if (attempt.registry_fails) task_.BreakRegistry();
  Fate fate = task_.Run(resume, kill);
  if (attempt.registry_fails) task_.MendRegistry();
  if (attempt.table_missing) task_.ShowTable();
  return fate;
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
  for (std::size_t at = 0; at < traced; ++at) Execute(expected.lines[at].line, true);
  if (!more.empty()) Execute(expected.lines[traced].line, false);
  logged_ += Joined(effects);
  return more.size();
}

void Chain::Execute(const PlannedLine& line, bool traced) {
  if (untraced_.contains(line.number)) {
    ++twice_;
    ++figures_.twice;
    story_ += "line " + std::to_string(line.number) + " executed again\n";
    if (traced) untraced_.erase(line.number);
  }
  const LineOutcome outcome = table_->Execute(line.text);
  if (!outcome.effects.empty()) {
    took_effect_.insert(line.number);
    if (!traced) untraced_.insert(line.number);
  }
  if (outcome.failed) ++figures_.rejected;
}

bool Chain::OtherChainIsOver() const { return task_.ChainText().starts_with(kVoid); }

bool Chain::OtherChainStands(const SideTexts& now, bool took_effect) const {
  // Another chain without a state, or with the state of a first run, counts only with its trace.
  const bool trace_stands = now.trace == left_.trace && !took_effect;
  const bool first = foreign_->find("\nFIRST\n") != std::string::npos;
  const bool same =
      foreign_->empty() ? trace_stands : task_.ChainText() == *foreign_ && (!first || trace_stands);
  return same || (OtherChainIsOver() && now.trace == left_.trace && !now.trace.empty());
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
  if (foreign_ && OtherChainStands(now, !effects.empty())) {
    Check(effects.empty() && now == left_, "A chain still stands after the run has begun");
    ++figures_.kills_before_lines;
    return Ended::kGoOn;
  }
  if (!foreign_ && now.trace == left_.trace && !now.trace.empty() && effects.empty()) {
    // The run hadn't come to its own files, or only to the first of them.
    ++figures_.kills_before_lines;
    if (now.rejected != left_.rejected) state_ = merged;
    left_ = now;
    return Ended::kGoOn;
  }
  foreign_.reset();
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
  if (expected.came_to_lines && traced == expected.lines.size()) ++figures_.kills_after_lines;
  state_ = merged;
  left_ = now;
  return Ended::kGoOn;
}

bool Chain::TakeAdvice(const Fate& fate) {
  const std::vector<std::string> commands = AdvisedCommands(fate.said);
  if (commands.empty()) return false;
  Check(commands.size() == 2 && commands[0].ends_with("RecTrace=1") &&
            commands[1].ends_with("--resume"),
        "Not the commands that go on from there: " + fate.said);
  story_ += "as advised: " + commands[0] + '\n';
  task_.Obey(commands[0]);
  ++figures_.advised;
  return true;
}

Chain::Ended Chain::AfterEnd(const Attempt& attempt, const Fate& fate, const ExpectedRun& expected,
                             const ChainState& merged) {
  const SideTexts now = task_.Left();
  const std::vector<std::string> effects = task_.NewEffects();
  if (fate.code == kResumeRefused) {
    Check(now == left_ && effects.empty(), "A run that was refused did something");
    if (TakeAdvice(fate)) {
      Check(!task_.traced() && merged.rejected.empty(),
            "A trace wasn't enough though it should be: " + fate.said);
      return Ended::kAdvised;
    }
    Check(merged == ChainState{}, "A resume was refused although lines were traced: " + fate.said);
    return Ended::kRefused;
  }
  foreign_.reset();
  const std::size_t in_hand = TakeEffects(expected, expected.lines.size(), effects);
  Check(in_hand == 0, "More took effect than a whole run does");
  const bool done = expected.errors == 0;
  const int code = done ? kDone : kHadErrors;
  Check(fate.code == (attempt.registry_fails ? kNotStored : code),
        "Ended with " + std::to_string(fate.code) + ": " + fate.said);
  if (attempt.registry_fails) {
    Check(task_.Status() != kSucceeded, "Said to have succeeded, which couldn't be stored");
    ++figures_.not_stored;
    TakeAdvice(fate);
  } else {
    Check(task_.Status() == (done ? kSucceeded : kFailed), "Status " + task_.Status());
  }
  if (done && !attempt.registry_fails) {
    Check(task_.ChainFiles().empty(), "Side files that should be gone: " + task_.ChainFiles());
    return Ended::kDone;
  }
  if (expected.came_to_lines) {
    const std::size_t count = expected.lines.size();
    Check(now.trace == expected.Trace(count), "Not the trace of a whole run", expected.Trace(count),
          now.trace);
    Check(now.rejected == expected.RejectedText(count), "Not the rejected lines of a whole run",
          expected.RejectedText(count), now.rejected);
  } else {
    const SideTexts before = merged == ChainState{} ? SideTexts{} : left_;
    Check(now == before, "A run that came to no line doesn't leave what it found",
          before.trace + before.rejected, now.trace + now.rejected);
  }
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
