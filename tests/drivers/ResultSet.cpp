#include "tests/drivers/ResultSet.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string>
#include <system_error>

namespace imptable::scripted {
namespace {

SQLRETURN Fail(DiagnosticQueue& diagnostics, const char* state, const char* text) {
  diagnostics.Push({state, 0, text});
  return SQL_ERROR;
}

SQLRETURN DeliverText(const std::string& text, const BoundColumn& bound,
                      DiagnosticQueue& diagnostics) {
  if (bound.indicator != nullptr) *bound.indicator = static_cast<SQLLEN>(text.size());
  if (bound.size <= 0) return Fail(diagnostics, "S1090", "Invalid string or buffer length");
  const std::size_t room = static_cast<std::size_t>(bound.size) - 1;
  const std::size_t taken = std::min(text.size(), room);
  char* target = static_cast<char*>(bound.target);
  std::memcpy(target, text.data(), taken);
  target[taken] = '\0';
  if (taken == text.size()) return SQL_SUCCESS;
  diagnostics.Push({"01004", 0, "Data truncated"});
  return SQL_SUCCESS_WITH_INFO;
}

template <typename Number>
SQLRETURN DeliverNumber(const std::string& text, const BoundColumn& bound,
                        DiagnosticQueue& diagnostics) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::result_out_of_range) {
    return Fail(diagnostics, "22003", "Numeric value out of range");
  }
  if (error != std::errc{} || stop != end) {
    return Fail(diagnostics, "22005", "Error in assignment");
  }
  std::memcpy(bound.target, &number, sizeof number);
  if (bound.indicator != nullptr) *bound.indicator = sizeof number;
  return SQL_SUCCESS;
}

SQLRETURN Deliver(const Cell& cell, const BoundColumn& bound, DiagnosticQueue& diagnostics) {
  if (!cell) {
    if (bound.indicator == nullptr) {
      return Fail(diagnostics, "22002", "Indicator variable required but not supplied");
    }
    *bound.indicator = SQL_NULL_DATA;
    return SQL_SUCCESS;
  }
  switch (bound.c_type) {
    case SQL_C_CHAR:
      return DeliverText(*cell, bound, diagnostics);
    case SQL_C_SHORT:
    case SQL_C_SSHORT:
      return DeliverNumber<SQLSMALLINT>(*cell, bound, diagnostics);
    case SQL_C_LONG:
    case SQL_C_SLONG:
      return DeliverNumber<SQLINTEGER>(*cell, bound, diagnostics);
    default:
      return Fail(diagnostics, "S1C00", "Driver not capable");
  }
}

}  // namespace

SQLRETURN FetchRow(ResultSet& result, const std::vector<BoundColumn>& bound,
                   DiagnosticQueue& diagnostics) {
  if (result.columns.empty()) return Fail(diagnostics, "24000", "Invalid cursor state");
  if (result.next == result.rows.size()) return SQL_NO_DATA_FOUND;
  const ResultRow& row = result.rows[result.next++];
  SQLRETURN worst = SQL_SUCCESS;
  for (std::size_t i = 0; i < std::min(row.size(), bound.size()); ++i) {
    if (bound[i].target == nullptr) continue;
    const SQLRETURN code = Deliver(row[i], bound[i], diagnostics);
    if (code == SQL_ERROR) return SQL_ERROR;
    if (code != SQL_SUCCESS) worst = code;
  }
  return worst;
}

}  // namespace imptable::scripted
