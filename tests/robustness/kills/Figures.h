#ifndef TESTS_ROBUSTNESS_KILLS_FIGURES_H_
#define TESTS_ROBUSTNESS_KILLS_FIGURES_H_

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>

namespace imptable {

/// What was done and seen.
struct Figures {
  std::int64_t chains = 0;
  std::int64_t runs = 0;
  std::int64_t resumes = 0;
  std::int64_t kills = 0;
  std::int64_t kills_at_moments = 0;
  std::int64_t kills_before_lines = 0;  ///< nothing of that run was traced or took effect
  std::int64_t kills_after_lines = 0;   ///< every line of that run was traced
  std::int64_t lines = 0;               ///< of the chains' data files
  std::int64_t rejected = 0;            ///< traced as rejected
  std::int64_t mended = 0;
  std::int64_t limit_stops = 0;
  std::int64_t finished = 0;  ///< chains that ended with the status "succeeded"
  std::int64_t in_hand = 0;   ///< kills between a line's effect and its trace
  std::int64_t most_in_hand = 0;
  std::int64_t twice = 0;  ///< executions of lines that had taken effect before
  std::int64_t lost = 0;
  std::int64_t advised = 0;     ///< resumes that the command's own advice made possible
  std::int64_t not_stored = 0;  ///< runs whose status couldn't be stored
  std::int64_t faults = 0;

  void Add(const Figures& other) {
    for (const auto field :
         {&Figures::chains, &Figures::runs, &Figures::resumes, &Figures::kills,
          &Figures::kills_at_moments, &Figures::kills_before_lines, &Figures::kills_after_lines,
          &Figures::lines, &Figures::rejected, &Figures::mended, &Figures::limit_stops,
          &Figures::finished, &Figures::in_hand, &Figures::twice, &Figures::lost, &Figures::advised,
          &Figures::not_stored, &Figures::faults}) {
      this->*field += other.*field;
    }
    most_in_hand = std::max(most_in_hand, other.most_in_hand);
  }

  void Print(std::ostream& out, const std::string& of) const {
    out << of << ": " << kills << " kills (" << kills_at_moments << " at moments, "
        << kills - kills_at_moments << " at calls; " << kills_before_lines << " before and "
        << kills_after_lines << " after the lines), " << chains << " chains, " << runs << " runs, "
        << resumes << " resumes, " << lines << " lines, " << rejected << " rejected, " << mended
        << " mended, " << limit_stops << " stops at the error limit, " << finished
        << " chains to the end, " << advised << " resumed as advised, " << not_stored
        << " not stored; executed twice " << twice << " (at most " << most_in_hand
        << " in hand at a kill), lost " << lost << ", faults " << faults << '\n';
  }
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_FIGURES_H_
