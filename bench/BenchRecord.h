#ifndef BENCH_BENCH_RECORD_H_
#define BENCH_BENCH_RECORD_H_

#include <functional>
#include <string>

namespace imptable {

/// What was measured: printed as it comes, kept as lines of tab-separated values.
class BenchRecord {
 public:
  void Add(const std::string& what, const std::string& unit, double ours, double theirs,
           double ratio, double least, double most, const std::string& wanted);

  /// Runs `ours` and `theirs` in turn; each returns its seconds. Adds their medians and the median
  /// of the pairs' ratios.
  void AddPairs(const std::string& what, int pairs, const std::function<double()>& ours,
                const std::function<double()>& theirs, const std::string& wanted);

  const std::string& lines() const { return lines_; }

 private:
  std::string lines_;
};

}  // namespace imptable

#endif  // BENCH_BENCH_RECORD_H_
