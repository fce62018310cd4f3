#include "tests/drivers/Playback.h"

#include <thread>
#include <utility>

#include "tests/drivers/LikePattern.h"

namespace imptable::scripted {
namespace {

bool Holds(const Turn& turn, std::uint64_t count) {
  switch (turn.kind) {
    case Turn::Kind::kAny:
      return true;
    case Turn::Kind::kNth:
      return count == turn.number;
    case Turn::Kind::kEvery:
      return count % turn.number == 0;
    case Turn::Kind::kFrom:
      return count >= turn.number;
  }
  return false;
}

ParameterValue ParameterOf(const Occasion& occasion, SQLUSMALLINT number) {
  if (occasion.parameters == nullptr || number == 0 || number > occasion.parameters->size()) {
    return {};
  }
  return ReadParameter((*occasion.parameters)[number - 1u]);
}

bool Holds(const Condition& condition, const Occasion& occasion) {
  switch (condition.kind) {
    case Condition::Kind::kNone:
      return true;
    case Condition::Kind::kTextEquals:
      return occasion.text == condition.value;
    case Condition::Kind::kTextIsLike:
      return IsLike(occasion.text, condition.value, '\0');
    case Condition::Kind::kParameterIsNull:
      return ParameterOf(occasion, condition.parameter).kind == ParameterValue::Kind::kNull;
    case Condition::Kind::kParameterEquals:
      return Equals(ParameterOf(occasion, condition.parameter), condition.value);
  }
  return false;
}

}  // namespace

Playback::Playback(std::shared_ptr<const Script> script) : script_(std::move(script)) {}

Playback::Step Playback::Find(const CallPlan& plan, std::uint64_t count, const Occasion& occasion) {
  if (plan.delay.count() > 0) std::this_thread::sleep_for(plan.delay);
  Step step;
  step.crash = plan.crash_at == count;
  for (const Rule& rule : plan.rules) {
    if (!Holds(rule.turn, count) || !Holds(rule.condition, occasion)) continue;
    step.rule = &rule;
    break;
  }
  return step;
}

const RowCountRule* Playback::ExecutionRowCount(const Occasion& occasion) const {
  for (const RowCountRule& rule : script_->row_counts) {
    if (rule.condition.kind != Condition::Kind::kNone && Holds(rule.condition, occasion)) {
      return &rule;
    }
  }
  return nullptr;
}

SQLLEN Playback::RowCount(const RowCountRule* of_execution) const {
  const std::uint64_t count = counts_[static_cast<std::size_t>(Call::kRowCount)];
  for (const RowCountRule& rule : script_->row_counts) {
    const bool applies = rule.condition.kind == Condition::Kind::kNone || &rule == of_execution;
    if (applies && Holds(rule.turn, count)) return rule.answer;
  }
  return script_->row_count;
}

}  // namespace imptable::scripted
