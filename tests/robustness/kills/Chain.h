#ifndef TESTS_ROBUSTNESS_KILLS_CHAIN_H_
#define TESTS_ROBUSTNESS_KILLS_CHAIN_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/robustness/kills/Figures.h"
#include "tests/robustness/kills/KillTask.h"
#include "tests/robustness/kills/SourceLines.h"

namespace imptable {

inline constexpr int kNoLimit = 30000;

/// One run of a chain and what its operator does before it.
struct Attempt {
  /// @param lines  that the run will come to unless it is killed.
  std::function<Kill(std::size_t lines)> kill = [](std::size_t) { return Kill{}; };
  double mended = 0;  ///< share of the rejected lines that get another text
  double badly = 0;   ///< share of those whose new text is refused again
  int error_limit = kNoLimit;
  bool table_missing = false;   ///< so the run comes to no line
  bool registry_fails = false;  ///< so its status can't be stored
};

struct ChainPlan {
  int lines = 0;
  double bad_share = 0;
  /// An earlier chain, given up: its table is made anew, its side files stay.
  std::vector<Attempt> before;
  std::vector<Attempt> attempts;  ///< the first afresh, the others as resumes
};

class ChainFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Carries a plan out. After each run, compares what was traced, what took effect and what is left
/// with what the model says.
class Chain {
 public:
  /// @param task, random, figures  borrowed.
  Chain(KillTask& task, Random& random, Figures& figures)
      : task_(task), random_(random), figures_(figures) {}

  /// @throws ChainFault  with what is not as it should be.
  void Go(const ChainPlan& plan);

  /// Whether the attempt of this index was killed. The chain before doesn't count.
  bool WasKilled(std::size_t attempt) const { return killed_.contains(attempt); }

  /// What was done, for whoever looks for the cause of a fault.
  const std::string& story() const { return story_; }

 private:
  enum class Ended { kDone, kGoOn, kRefused, kAdvised };

  void Begin(const ChainPlan& plan);
  bool GoThrough(const std::vector<Attempt>& attempts);
  Ended TryOnce(const Attempt& attempt, bool resume);
  void Mend(const Attempt& attempt);
  Ended AfterKill(const ExpectedRun& expected, const ChainState& merged);
  Ended AfterEnd(const Attempt& attempt, const Fate& fate, const ExpectedRun& expected,
                 const ChainState& merged);
  bool TakeAdvice(const Fate& fate);
  /// @return how many effects go beyond those of the traced lines: they belong to the line in hand.
  std::size_t TakeEffects(const ExpectedRun& expected, std::size_t traced,
                          const std::vector<std::string>& effects);
  Fate Run(const Attempt& attempt, bool resume, const Kill& kill);
  void Execute(const PlannedLine& line, bool traced);
  bool OtherChainIsOver() const;
  bool OtherChainStands(const SideTexts& now, bool took_effect) const;
  void CheckEnd(bool finished);
  void Check(bool holds, const std::string& what, const std::string& expected = {},
             const std::string& found = {}) const;

  KillTask& task_;
  Random& random_;
  Figures& figures_;
  std::unique_ptr<SourceLines> source_;
  std::unique_ptr<TableModel> table_;
  ChainState state_;
  SideTexts left_;
  std::optional<std::string> foreign_;  // the state of another chain, which left the files
  std::string logged_;                  // all that took effect
  std::set<int> took_effect_;
  std::set<int> untraced_;  // lines that took effect in hand, before their trace
  std::int64_t kills_ = 0;
  std::set<std::size_t> killed_;
  std::int64_t twice_ = 0;
  std::string story_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_CHAIN_H_
