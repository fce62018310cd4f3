#ifndef TESTS_ROBUSTNESS_FUZZ_PROPERTY_H_
#define TESTS_ROBUSTNESS_FUZZ_PROPERTY_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzzer puts one input to. Returns 0; a broken property ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace imptable {

/// Ends the process when a property doesn't hold: that is how a fuzzer is told of a finding.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", property);
  std::abort();
}

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FUZZ_PROPERTY_H_
