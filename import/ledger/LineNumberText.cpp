#include "import/ledger/LineNumberText.h"

#include <array>
#include <charconv>

namespace imptable {

void AppendNumberText(std::int32_t number, std::string& out) {
  std::array<char, 12> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (error == std::errc() && count < kNumberDigits) out.append(kNumberDigits - count, '0');
  out.append(digits.data(), count);
}

bool ReadNumberText(std::string_view digits, std::int32_t& number) {
  if (digits.size() < kNumberDigits || digits.front() == '-') return false;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size();
}

}  // namespace imptable
