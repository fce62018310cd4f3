#include "bench/BenchRecord.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace imptable {
namespace {

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

void BenchRecord::Add(const std::string& what, const std::string& unit, double ours, double theirs,
                      double ratio, double least, double most, const std::string& wanted) {
  char line[256];
  std::snprintf(line, sizeof line, "%s\t%.3f\t%.3f\t%s\t%.2f\t%.2f-%.2f\t%s\n", what.c_str(), ours,
                theirs, unit.c_str(), ratio, least, most, wanted.c_str());
  lines_ += line;
  std::printf("%-44s %9.3f %9.3f %-4s ratio %.2f (%.2f to %.2f), wanted: %s\n", what.c_str(), ours,
              theirs, unit.c_str(), ratio, least, most, wanted.c_str());
  std::fflush(stdout);
}

void BenchRecord::AddPairs(const std::string& what, int pairs, const std::function<double()>& ours,
                           const std::function<double()>& theirs, const std::string& wanted) {
  std::vector<double> our_seconds;
  std::vector<double> their_seconds;
  std::vector<double> ratios;
  for (int i = 0; i < pairs; ++i) {
    our_seconds.push_back(ours());
    their_seconds.push_back(theirs());
    ratios.push_back(our_seconds.back() / their_seconds.back());
  }
  const auto [least, most] = std::minmax_element(ratios.begin(), ratios.end());
  Add(what, "s", Median(our_seconds), Median(their_seconds), Median(ratios), *least, *most, wanted);
}

}  // namespace imptable
