// Any bytes as a text file, however few of them a read gives or the memory holds.
#include <memory>
#include <string>
#include <vector>

#include "import/LineReader.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/MemoryInput.h"
#include "tests/robustness/fuzz/Property.h"

namespace imptable {
namespace {

struct Line {
  std::string text;
  bool ended;
  std::size_t taken;  // bytes of the file up to its end

  bool operator==(const Line&) const = default;
};

std::vector<Line> SlowLines(const std::string& bytes, bool skip_mark) {
  std::vector<Line> lines;
  std::size_t at = skip_mark && bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  std::string text;
  for (; at < bytes.size(); ++at) {
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

std::vector<Line> Lines(const std::string& bytes, std::string_view steps, bool skip_mark,
                        std::size_t block_bytes) {
  LineReader reader(std::make_unique<MemoryInput>(bytes, steps), "file", skip_mark, block_bytes);
  std::vector<Line> lines;
  std::string_view line;
  while (reader.Next(line)) {
    lines.push_back({std::string(line), reader.ended(), reader.bytes_taken()});
  }
  Require(!reader.Next(line), "the end of a file stays its end");
  return lines;
}

void CheckLines(FuzzInput input) {
  const bool skip_mark = input.Flag();
  const std::size_t block_bytes = input.Below(64) + 1;
  const std::string_view steps = input.Upto('|');
  const std::string bytes(input.Rest());
  Require(Lines(bytes, steps, skip_mark, block_bytes) == SlowLines(bytes, skip_mark),
          "lines are as a slow splitter has them");
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckLines({data, size});
  return 0;
}
