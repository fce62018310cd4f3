#ifndef TESTS_ROBUSTNESS_DATABASES_RANDOM_VALUES_H_
#define TESTS_ROBUSTNESS_DATABASES_RANDOM_VALUES_H_

#include <random>
#include <string>
#include <vector>

namespace imptable {

/// Fields of lines: valid for a column, nearly valid, or such as no column expects. The same seed
/// gives the same fields.
class RandomValues {
 public:
  explicit RandomValues(std::uint32_t seed) : random_(seed) {}

  /// Any value at all.
  std::string Any();

  /// One of these keys, one of them cut or with something added, or any value.
  std::string KeyLike(const std::vector<std::string>& keys);

  bool OneIn(int n) { return Below(n) == 0; }
  int Below(int n) { return static_cast<int>(random_() % static_cast<std::uint32_t>(n)); }

 private:
  std::string Digits(int most);
  std::string Number();
  std::string Date();
  std::string Time();
  std::string Text();

  std::mt19937 random_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DATABASES_RANDOM_VALUES_H_
