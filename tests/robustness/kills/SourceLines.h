#ifndef TESTS_ROBUSTNESS_KILLS_SOURCELINES_H_
#define TESTS_ROBUSTNESS_KILLS_SOURCELINES_H_

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/robustness/kills/TableModel.h"

namespace imptable {

using Random = std::mt19937_64;

/// @param share  how often the answer is yes, from 0 to 1.
bool Chance(Random& random, double share);
/// Both included.
int Between(Random& random, int low, int high);

/// A generated data file for some work, and the table that it is made for. Each version of a line
/// tells its number: its name is "line NUMBER vVERSION".
class SourceLines {
 public:
  /// @param bad_share  of lines that are refused as they stand, for an impossible date, a value
  /// that a check refuses, a missing name or key, one field too many, or a row that can't be
  /// deleted.
  SourceLines(Random& random, Work work, int count, double bad_share);

  const std::vector<std::string>& texts() const { return texts_; }
  const TableModel& table() const { return table_; }

  /// A new text for the line: a good one, or else (badly) one that is refused again.
  std::string Mended(Random& random, int number, bool badly);

  /// A good line that changes the table: its number, and the start of what is logged of it. No
  /// other line's log begins so.
  struct Sure {
    int number;
    std::string log;
  };
  const std::vector<Sure>& sure() const { return sure_; }

 private:
  std::string Text(Random& random, int number, int code, int version, bool bad);

  Work work_;
  std::vector<std::string> texts_;
  std::vector<int> versions_;
  std::vector<Sure> sure_;
  TableModel table_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_SOURCELINES_H_
