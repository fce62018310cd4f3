#include "tests/robustness/faults/OdbcCalls.h"

#include <utility>

namespace imptable {
namespace {

OdbcCalls* the_current = nullptr;

}  // namespace

OdbcCalls::OdbcCalls(FaultPlan& plan, ClientTable& table) : plan_(plan), table_(table) {
  the_current = this;
}

OdbcCalls::~OdbcCalls() { the_current = nullptr; }

OdbcCalls* OdbcCalls::current() { return the_current; }

void OdbcCalls::Diagnose(SQLHANDLE handle, Diagnostic diagnostic) {
  diagnostics_[handle] = std::move(diagnostic);
}

std::optional<OdbcCalls::Diagnostic> OdbcCalls::TakeDiagnostic(SQLHANDLE handle) {
  const auto found = diagnostics_.find(handle);
  if (found == diagnostics_.end()) return std::nullopt;
  Diagnostic diagnostic = std::move(found->second);
  diagnostics_.erase(found);
  return diagnostic;
}

void OdbcCalls::Prepared(SQLHSTMT statement, std::string text) {
  statements_[statement].text = std::move(text);
}

void OdbcCalls::Bound(SQLHSTMT statement, SQLUSMALLINT number, SQLPOINTER value,
                      const SQLLEN* indicator) {
  std::vector<Parameter>& parameters = statements_[statement].parameters;
  if (parameters.size() < number) parameters.resize(number);
  parameters[number - 1u] = {static_cast<const char*>(value), indicator};
}

SQLRETURN OdbcCalls::Executed(SQLHSTMT statement, const std::optional<std::string>& text) {
  StatementState& state = statements_[statement];
  std::vector<std::string> values;
  for (const Parameter& parameter : state.parameters) {
    const SQLLEN length = *parameter.indicator;
    values.push_back(length < 0 ? std::string()
                                : std::string(parameter.value, static_cast<std::size_t>(length)));
  }
  const Answer answer = table_.Execute(text.value_or(state.text), values);
  state.rows = static_cast<SQLLEN>(answer.rows);
  if (answer.code != SQL_SUCCESS) Diagnose(statement, {"23000", answer.native, answer.text});
  return answer.code;
}

SQLLEN OdbcCalls::RowCount(SQLHSTMT statement) const {
  const auto found = statements_.find(statement);
  return found == statements_.end() ? -1 : found->second.rows;
}

void OdbcCalls::Freed(SQLHANDLE handle) {
  handles_.erase(handle);
  statements_.erase(handle);
  diagnostics_.erase(handle);
}

void OdbcCalls::Disconnected() {
  std::erase_if(handles_, [this](const auto& each) {
    if (each.second != Kind::kStatement) return false;
    ++statements_left_;
    return true;
  });
  statements_.clear();
}

}  // namespace imptable
