#ifndef TESTS_ROBUSTNESS_KILLS_SOURCELINES_H_
#define TESTS_ROBUSTNESS_KILLS_SOURCELINES_H_

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/robustness/kills/TableModel.h"

namespace imptable {

using Random = std::mt19937_64;

/// @param share  of 1: how often the answer is yes.
bool Chance(Random& random, double share);
/// Both included.
int Between(Random& random, int low, int high);

/// A generated data file for some work, and the table that it is made for. Each version of a line
/// tells its number: its name is "line NUMBER vVERSION".
class SourceLines {
 public:
  /// @param bad_share  of lines that are refused as they stand: days that are none, a value that a
  ///     check refuses, a missing name or key, one field too many, a row that can't be deleted.
  SourceLines(Random& random, Work work, int count, double bad_share);

  const std::vector<std::string>& texts() const { return texts_; }
  const TableModel& table() const { return table_; }

  /// A later text of the line, nothing wrong with it or something else.
  std::string Mended(Random& random, int number, bool badly);

  /// Numbers of lines with nothing wrong that change the table, and what is logged of each: a text
  /// that no other line's log begins with.
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
