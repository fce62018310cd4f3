#ifndef TESTS_DRIVERS_PLAYBACK_H_
#define TESTS_DRIVERS_PLAYBACK_H_

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include "tests/drivers/BoundParameter.h"
#include "tests/drivers/Script.h"

namespace imptable::scripted {

/// What a call was given, as far as conditions can ask for it.
struct Occasion {
  std::string_view text;
  const BoundParameters* parameters = nullptr;
};

/// A script being played: counts the calls of one connection and finds what is said about each.
class Playback {
 public:
  struct Step {
    const Rule* rule = nullptr;
    bool crash = false;
  };

  explicit Playback(std::shared_ptr<const Script> script);

  const Script& script() const { return *script_; }

  /// Counts the call and waits as long as the script wants.
  Step Next(Call call, const Occasion& occasion) {
    const std::uint64_t count = ++counts_[static_cast<std::size_t>(call)];
    const CallPlan& plan = script_->PlanOf(call);
    return plan.IsQuiet() ? Step{} : Find(plan, count, occasion);
  }

  /// What SQLRowCount will answer for this execution. The parameters' buffers can't be read
  /// later, so this is asked at each execution; nullptr when no condition holds.
  const RowCountRule* ExecutionRowCount(const Occasion& occasion) const;
  /// The answer to the SQLRowCount call that Next has just counted.
  SQLLEN RowCount(const RowCountRule* of_execution) const;

 private:
  static Step Find(const CallPlan& plan, std::uint64_t count, const Occasion& occasion);

  std::shared_ptr<const Script> script_;
  std::array<std::uint64_t, kCallCount> counts_{};
};

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_PLAYBACK_H_
