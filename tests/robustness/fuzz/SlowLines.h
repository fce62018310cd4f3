#ifndef TESTS_ROBUSTNESS_FUZZ_SLOW_LINES_H_
#define TESTS_ROBUSTNESS_FUZZ_SLOW_LINES_H_

#include <cstddef>
#include <string>
#include <vector>

namespace imptable {

struct SlowLine {
  std::string text;
  bool ended;
  std::size_t taken;  // bytes of the file up to its end

  bool operator==(const SlowLine&) const = default;
};

/// The lines of a text, byte by byte.
inline std::vector<SlowLine> SlowLines(const std::string& bytes, bool skip_mark) {
  std::vector<SlowLine> lines;
  std::string text;
  for (std::size_t at = skip_mark && bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0; at < bytes.size();
       ++at) {
    if (bytes[at] != '\r' && bytes[at] != '\n') {
      text += bytes[at];
      continue;
    }
    if (bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n') ++at;
    lines.push_back({text, true, at + 1});
    text.clear();
  }
  if (!text.empty()) lines.push_back({text, false, bytes.size()});
  return lines;
}

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FUZZ_SLOW_LINES_H_
