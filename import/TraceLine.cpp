#include "import/TraceLine.h"

#include <array>
#include <charconv>

namespace imptable {
namespace {

constexpr std::size_t kNumberDigits = 8;

void AppendNumber(std::int32_t number, std::string& out) {
  std::array<char, 12> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (error == std::errc() && count < kNumberDigits) out.append(kNumberDigits - count, '0');
  out.append(digits.data(), count);
}

bool ReadNumber(std::string_view digits, std::int32_t& number) {
  if (digits.size() < kNumberDigits || digits.front() == '-') return false;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size();
}

}  // namespace

void AppendTraceLine(const TraceLine& trace, std::string& out) {
  AppendNumber(trace.line_number, out);
  out += trace.failed ? '1' : '0';
  AppendNumber(trace.errors, out);
}

std::optional<TraceLine> ParseTraceLine(std::string_view text) {
  if (text.size() < 2 * kNumberDigits + 1) return std::nullopt;
  // The error count never outgrows its digits: a run stops soon after 32,767 errors.
  const std::size_t status_at = text.size() - kNumberDigits - 1;
  const char status = text[status_at];
  TraceLine trace;
  if ((status != '0' && status != '1') ||
      !ReadNumber(text.substr(0, status_at), trace.line_number) ||
      !ReadNumber(text.substr(status_at + 1), trace.errors)) {
    return std::nullopt;
  }
  trace.failed = status == '1';
  return trace;
}

}  // namespace imptable
