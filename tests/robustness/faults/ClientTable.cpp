#include "tests/robustness/faults/ClientTable.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace imptable {
namespace {

constexpr std::int16_t kError = -1;
constexpr std::int32_t kConstraint = 19;  // SQLite's number for a broken constraint

Answer Refusal(const std::string& constraint) {
  return {.code = kError, .native = kConstraint, .text = constraint};
}

Answer Changed(std::size_t rows) { return {.rows = static_cast<std::int64_t>(rows), .text = {}}; }

/// One "(CODE BETWEEN 1 AND 2)".
struct Condition {
  bool on_code;
  std::string low, high;

  bool Holds(const ClientTable::Row& row) const {
    if (on_code) return row.first >= std::stoi(low) && row.first <= std::stoi(high);
    return row.second >= low && row.second <= high;
  }
};

std::string Unquoted(std::string text) {
  std::erase_if(text, [](char each) { return each == '"' || each == '\''; });
  return text;
}

/// The text between the next `start` and the `end` after it.
/// @param at  where to look from; moved behind the end.
std::string Between(const std::string& text, std::string_view start, std::string_view end,
                    std::size_t& at) {
  const std::size_t from = text.find(start, at);
  const std::size_t to = text.find(end, from);
  if (from == std::string::npos || to == std::string::npos) throw std::invalid_argument(text);
  at = to + end.size();
  return text.substr(from + start.size(), to - from - start.size());
}

/// @param text  "CODE BETWEEN 1 AND 2", names and values perhaps quoted.
Condition ConditionIn(const std::string& text) {
  std::size_t at = 0;
  const std::string low = Between(text, " BETWEEN ", " AND ", at);
  const std::string column = Unquoted(text.substr(0, text.find(' ')));
  if (column != "CODE" && column != "NOM") throw std::invalid_argument(text);
  return {column == "CODE", Unquoted(low), Unquoted(text.substr(at))};
}

}  // namespace

Answer ClientTable::Insert(const std::vector<std::string>& values) {
  const int code = std::stoi(values.at(0));
  if (code == kRefusedCode) return Refusal("CHECK constraint failed: CODE");
  const bool exists =
      std::any_of(rows_.begin(), rows_.end(), [&](const Row& row) { return row.first == code; });
  if (unique_key_ && exists) return Refusal("UNIQUE constraint failed: CLIENT.CODE");
  rows_.emplace_back(code, values.at(1));
  ++effects_[code];
  return Changed(1);
}

Answer ClientTable::Update(const std::vector<std::string>& values) {
  const int code = std::stoi(values.at(2));
  if (code == kRefusedCode) return Refusal("CHECK constraint failed: CODE");
  std::size_t changed = 0;
  for (Row& row : rows_) {
    if (row.first != code) continue;
    row = {std::stoi(values.at(0)), values.at(1)};
    ++changed;
  }
  if (changed > 0) ++effects_[code];
  return Changed(changed);
}

Answer ClientTable::Delete(int code) {
  if (code == kRefusedCode) return Refusal("FOREIGN KEY constraint failed");
  const std::size_t deleted =
      std::erase_if(rows_, [&](const Row& row) { return row.first == code; });
  if (deleted > 0) ++effects_[code];
  return Changed(deleted);
}

Answer ClientTable::DeleteRanges(const std::string& text) {
  std::vector<Condition> conditions;
  for (std::size_t at = 0; (at = text.find('(', at)) != std::string::npos;) {
    conditions.push_back(ConditionIn(Between(text, "(", ")", at)));
  }
  if (conditions.empty()) throw std::invalid_argument(text);
  return Changed(std::erase_if(rows_, [&](const Row& row) {
    return std::all_of(conditions.begin(), conditions.end(),
                       [&](const Condition& condition) { return condition.Holds(row); });
  }));
}

Answer ClientTable::Execute(const std::string& text, const std::vector<std::string>& values) {
  if (text.starts_with("INSERT INTO ")) return Insert(values);
  if (text.starts_with("UPDATE ")) return Update(values);
  if (text.starts_with("TRUNCATE TABLE ")) {
    rows_.clear();
    return {};
  }
  if (!text.starts_with("DELETE FROM ")) throw std::invalid_argument(text);
  return values.empty() ? DeleteRanges(text) : Delete(std::stoi(values.at(0)));
}

std::vector<ClientTable::Row> ClientTable::Rows() const {
  std::vector<Row> rows = rows_;
  std::sort(rows.begin(), rows.end());
  return rows;
}

}  // namespace imptable
