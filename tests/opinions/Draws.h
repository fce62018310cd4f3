#ifndef TESTS_OPINIONS_DRAWS_H_
#define TESTS_OPINIONS_DRAWS_H_

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace imptable {

/// Random choices that are the same with each compiler and library: the standard says what the
/// engine gives, but not what its distributions make of that.
class Draws {
 public:
  explicit Draws(std::uint32_t seed) : engine_(seed) {}

  /// @return a number from 0 to limit - 1.
  std::size_t Below(std::size_t limit) { return static_cast<std::uint32_t>(engine_()) % limit; }

  bool OneIn(std::size_t count) { return Below(count) == 0; }

  template <typename Choices>
  auto Of(const Choices& choices) {
    return choices[Below(std::size(choices))];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace imptable

#endif  // TESTS_OPINIONS_DRAWS_H_
