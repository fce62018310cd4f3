// Any bytes as a text file, with reads and blocks of any size.
#include <memory>
#include <string>
#include <vector>

#include "import/source/LineReader.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/MemoryInput.h"
#include "tests/robustness/fuzz/Property.h"
#include "tests/robustness/fuzz/SlowLines.h"

namespace imptable {
namespace {

std::vector<SlowLine> Lines(const std::string& bytes, std::string_view steps, bool skip_mark,
                            std::size_t block_bytes) {
  LineReader reader(std::make_unique<MemoryInput>(bytes, steps), "file", skip_mark, block_bytes);
  std::vector<SlowLine> lines;
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
