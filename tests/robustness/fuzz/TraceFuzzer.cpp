// Any text as a line of the trace.
#include <limits>
#include <string>

#include "import/ledger/Trace.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/Property.h"

namespace imptable {
namespace {

bool Same(const TraceLine& one, const TraceLine& other) {
  return one.line_number == other.line_number && one.failed == other.failed &&
         one.errors == other.errors;
}

void CheckTraceLine(std::string_view text) {
  const auto trace = ParseTraceLine(text);
  if (!trace) return;
  Require(trace->line_number >= 0 && trace->errors >= 0, "a trace counts, from nothing up");
  Require(text.find_first_not_of("0123456789") == std::string_view::npos,
          "a trace line is digits and nothing else");
  std::string written;
  AppendTraceLine(*trace, written);
  // The text can say the same only with more leading zeros.
  Require(written.size() <= text.size(), "a trace line is written in its shortest form");
  Require(written.size() < text.size() || written == text, "a trace line is written as it was");
  const auto again = ParseTraceLine(written);
  Require(again && Same(*again, *trace), "a written trace line reads the same");
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckTraceLine(imptable::FuzzInput(data, size).Rest());
  return 0;
}
