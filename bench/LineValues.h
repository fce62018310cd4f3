#ifndef BENCH_LINE_VALUES_H_
#define BENCH_LINE_VALUES_H_

#include <cstddef>
#include <string>
#include <vector>

#include "import/values/ParameterBuffer.h"

namespace imptable {

/// The bound values of many lines, kept compactly, so that a loop can play them back without
/// reading or converting anything.
class LineValues {
 public:
  /// Keeps what the buffers hold now.
  void Keep(const std::vector<ParameterBuffer>& buffers);

  std::size_t size() const { return first_cell_.size(); }

  /// Puts the values of line `index` back into the buffers.
  void Restore(std::size_t index, std::vector<ParameterBuffer>& buffers) const;

 private:
  struct Cell {
    SQLLEN text_indicator, number_indicator, date_indicator;
    double number;
    SQL_TIMESTAMP_STRUCT date;
    std::size_t text_at;
  };
  std::vector<Cell> cells_;
  std::vector<std::size_t> first_cell_;  // of each line
  std::string texts_;
};

}  // namespace imptable

#endif  // BENCH_LINE_VALUES_H_
