#include "import/modes/ModeSteps.h"

#include <utility>

namespace imptable {

bool ModeSteps::Allocate(Statement& statement) {
  if (statement.Allocate(session_.connection) == SQL_SUCCESS) return true;
  session_.ReportOdbcError();
  return false;
}

void ModeSteps::ReadWith(RecordParser parser) {
  parser_.emplace(std::move(parser));
  values_.emplace(session_, table_, module_.run.decimal_separator);
}

RecordResult ModeSteps::ExecuteRecord(std::string_view line) {
  if (auto unfit = values_->Check(*parser_, line)) return {.diagnostics = {*std::move(unfit)}};
  return Execute();
}

std::optional<SQLINTEGER> IgnorableCode(const ImportSettings& settings) {
  if (settings.duplicate_key != Flag::kOn) return std::nullopt;
  return AsInt32(settings.error_code, "CodErr");
}

}  // namespace imptable
