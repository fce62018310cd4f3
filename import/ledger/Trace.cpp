#include "import/ledger/Trace.h"

#include <array>
#include <charconv>
#include <utility>

#include "core/RuntimeFault.h"

namespace imptable {

void AppendLineNumber(std::int32_t number, std::string& out) {
  std::array<char, 12> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  const auto count = static_cast<std::size_t>(end - digits.data());
  if (error == std::errc() && count < kLineNumberDigits) out.append(kLineNumberDigits - count, '0');
  out.append(digits.data(), count);
}

bool ReadLineNumber(std::string_view digits, std::int32_t& number) {
  if (digits.size() < kLineNumberDigits || digits.front() == '-') return false;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size();
}

void AppendTraceLine(const TraceLine& trace, std::string& out) {
  AppendLineNumber(trace.line_number, out);
  out += trace.failed ? '1' : '0';
  AppendLineNumber(trace.errors, out);
}

std::optional<TraceLine> ParseTraceLine(std::string_view text) {
  if (text.size() < 2 * kLineNumberDigits + 1) return std::nullopt;
  // The error count never outgrows its digits: a run stops soon after 32,767 errors.
  const std::size_t status_at = text.size() - kLineNumberDigits - 1;
  const char status = text[status_at];
  TraceLine trace;
  if ((status != '0' && status != '1') ||
      !ReadLineNumber(text.substr(0, status_at), trace.line_number) ||
      !ReadLineNumber(text.substr(status_at + 1), trace.errors)) {
    return std::nullopt;
  }
  trace.failed = status == '1';
  return trace;
}

TraceReader::TraceReader(std::unique_ptr<LineReader> lines, std::string path)
    : lines_(std::move(lines)), path_(std::move(path)) {}

std::optional<TraceLine> TraceReader::Next() {
  std::string_view text;
  if (!lines_->Next(text) || !lines_->ended()) return std::nullopt;
  ++number_;
  auto trace = ParseTraceLine(text);
  if (!trace || trace->line_number <= source_line_) {
    throw RuntimeFault(FaultNumber::kTypeMismatch, path_ + ", " + std::to_string(number_));
  }
  source_line_ = trace->line_number;
  return trace;
}

}  // namespace imptable
