#ifndef TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_
#define TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace imptable {

/// Takes an input apart, from its start; past the end everything is zero or empty.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size)
      // The bytes are the same; only their type isn't.
      : rest_(reinterpret_cast<const char*>(data), size) {}

  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }

  /// A number from 0 to one less than `count`, which is at most 256.
  std::size_t Below(std::size_t count) { return Byte() % count; }

  bool Flag() { return (Byte() & 1U) != 0; }

  /// The bytes up to the next one of this value, which is taken too.
  std::string_view Upto(char end) {
    const std::size_t length = std::min(rest_.find(end), rest_.size());
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(std::min(length + 1, rest_.size()));
    return text;
  }

  std::string_view Rest() {
    const std::string_view text = rest_;
    rest_ = {};
    return text;
  }

  bool empty() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FUZZ_FUZZ_INPUT_H_
