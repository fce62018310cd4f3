#include "import/ledger/TraceLine.h"

#include "import/ledger/LineNumberText.h"

namespace imptable {

void AppendTraceLine(const TraceLine& trace, std::string& out) {
  AppendNumberText(trace.line_number, out);
  out += trace.failed ? '1' : '0';
  AppendNumberText(trace.errors, out);
}

std::optional<TraceLine> ParseTraceLine(std::string_view text) {
  if (text.size() < 2 * kNumberDigits + 1) return std::nullopt;
  // The error count never outgrows its digits: a run stops soon after 32,767 errors.
  const std::size_t status_at = text.size() - kNumberDigits - 1;
  const char status = text[status_at];
  TraceLine trace;
  if ((status != '0' && status != '1') ||
      !ReadNumberText(text.substr(0, status_at), trace.line_number) ||
      !ReadNumberText(text.substr(status_at + 1), trace.errors)) {
    return std::nullopt;
  }
  trace.failed = status == '1';
  return trace;
}

}  // namespace imptable
