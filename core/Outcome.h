#ifndef CORE_OUTCOME_H_
#define CORE_OUTCOME_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace imptable {

/// What became of one record of the source.
enum class Outcome : std::uint8_t {
  kInserted,
  kModified,
  kDeleted,
  kUnmatched,  // changed or deleted no row, though nothing was wrong with it
  kUncounted,  // executed; the database doesn't say how many rows it changed or deleted
  kIgnored,    // a duplicate that the task's settings ignore
  kRejected,
  kEmpty,    // held nothing to execute
  kSkipped,  // done by the run that this one resumes
};
inline constexpr std::size_t kOutcomes = static_cast<std::size_t>(Outcome::kSkipped) + 1;

/// A number of records for each outcome.
class OutcomeCounts {
 public:
  struct Count {
    Outcome outcome;
    std::int64_t records;
  };

  OutcomeCounts() = default;
  OutcomeCounts(std::initializer_list<Count> counts) {
    for (const Count& count : counts) (*this)[count.outcome] = count.records;
  }

  std::int64_t& operator[](Outcome outcome) { return counts_[static_cast<std::size_t>(outcome)]; }
  std::int64_t operator[](Outcome outcome) const {
    return counts_[static_cast<std::size_t>(outcome)];
  }

 private:
  std::array<std::int64_t, kOutcomes> counts_{};
};

}  // namespace imptable

#endif  // CORE_OUTCOME_H_
