#include "import/target/KeyColumns.h"

#include <algorithm>

namespace imptable {
namespace {

std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> pieces;
  std::size_t from = 0;
  while (!text.empty()) {
    const std::size_t comma = text.find(',', from);
    pieces.push_back(text.substr(from, comma - from));
    if (comma == std::string::npos) break;
    from = comma + 1;
  }
  return pieces;
}

bool PrimaryKey(const ModuleCommun& module, OdbcSession& session, std::vector<std::string>& keys) {
  std::vector<KeyColumn> columns;
  Catalogue catalogue(session, TableOf(module.run));
  if (!catalogue.CanListPrimaryKeys() || !catalogue.GetPrimaryKeyColumns(columns)) return false;
  for (KeyColumn& column : columns) keys.push_back(std::move(column.column_name));
  return true;
}

}  // namespace

bool ChooseKeyColumns(ModuleCommun& module, OdbcSession& session, std::vector<std::string>& keys) {
  keys.clear();
  bool chosen = true;
  if (module.run.primary_key != Flag::kOff) {
    chosen = PrimaryKey(module, session, keys);
  } else {
    keys = Split(module.run.key_or_index);
  }
  if (chosen && !keys.empty()) return true;
  module.WriteReport(module.MessageText(Message::kNoKey), ReportKind::kError);
  module.run.error_reported = true;
  return false;
}

std::string KeyCondition(const OdbcSession& session, const std::vector<std::string>& keys) {
  std::string text;
  for (const std::string& key : keys) {
    if (!text.empty()) text += " AND ";
    text += QuoteIdentifier(session, key) + " = ?";
  }
  return text;
}

SQLRETURN BindKeys(TargetTable& table, SQLHSTMT statement, SQLUSMALLINT number,
                   const std::vector<std::string>& keys) {
  const std::vector<TargetColumn>& columns = table.columns();
  for (const std::string& key : keys) {
    const auto column = std::find_if(columns.begin(), columns.end(),
                                     [&](const TargetColumn& each) { return each.name == key; });
    if (column == columns.end()) throw RuntimeFault(FaultNumber::kIndexOutOfRange, key);
    const SQLRETURN code =
        table.BindKey(statement, number++, static_cast<std::size_t>(column - columns.begin()));
    if (code != SQL_SUCCESS) return code;
  }
  return SQL_SUCCESS;
}

}  // namespace imptable
