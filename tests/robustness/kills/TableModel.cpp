#include "tests/robustness/kills/TableModel.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

constexpr const char* kNull = "<null>";

std::vector<std::string> Fields(std::string_view line) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t at = line.find(';');
    fields.emplace_back(line.substr(0, at));
    if (at == std::string_view::npos) return fields;
    line.remove_prefix(at + 1);
  }
}

/// yyyymmdd as yyyy-mm-dd, empty when it is no day.
std::string Day(const std::string& digits) {
  if (digits.find_first_not_of("0123456789") != std::string::npos) return {};
  return digits.substr(0, 4) + '-' + digits.substr(4, 2) + '-' + digits.substr(6);
}

bool Breaks(const Row& row) { return row.name.empty() || row.amount.starts_with('-'); }

std::string Log(char what, const std::string& code, const std::string& name) {
  return std::string(1, what) + ' ' + code + ' ' + name;
}

}  // namespace

std::string_view NameOf(Work work) {
  constexpr std::array<std::string_view, kWorks.size()> kNames{
      "INSERT", "INSERT, duplicates ignored",   "INSERT without a key", "UPDATE", "UPDATE/INSERT",
      "DELETE", "DELETE of rows that come back"};
  return kNames[static_cast<std::size_t>(work)];
}

bool IsInsert(Work work) {
  return work == Work::kInsert || work == Work::kInsertIgnoring || work == Work::kInsertUnkeyed;
}

bool IsDelete(Work work) { return work == Work::kDelete || work == Work::kDeleteReturning; }

LineOutcome TableModel::Execute(std::string_view line) {
  std::vector<std::string> fields = Fields(line);
  if (fields.size() > 4) return {.failed = true};
  fields.resize(4);
  Row row{fields[1], kNull, fields[3].empty() ? kNull : fields[3]};
  if (!fields[2].empty()) {
    row.born = Day(fields[2]);
    if (row.born.empty()) return {.failed = true};
  }
  if (IsDelete(work_)) return Delete(fields[0]);
  if (work_ == Work::kUpdate) return Update(fields[0], row);
  if (work_ == Work::kUpdateInsert && !fields[0].empty() && rows_.contains(std::stoi(fields[0]))) {
    return Update(fields[0], row);
  }
  return Insert(fields[0], row);
}

LineOutcome TableModel::Insert(std::string_view code, const Row& row) {
  const bool keyed = work_ != Work::kInsertUnkeyed;
  const std::string text(code);
  if (text.empty() || Breaks(row) || (keyed && rows_.contains(std::stoi(text)))) {
    return {.failed = work_ != Work::kInsertIgnoring};
  }
  Put(std::stoi(text), row);
  return {.effects = {Log('I', text, row.name)}};
}

LineOutcome TableModel::Update(std::string_view code, const Row& row) {
  const std::string text(code);
  const auto found = text.empty() ? rows_.end() : rows_.find(std::stoi(text));
  if (found == rows_.end()) return {};
  if (Breaks(row)) return {.failed = true};
  found->second = row;
  return {.effects = {Log('U', text, row.name)}};
}

LineOutcome TableModel::Delete(std::string_view code) {
  const std::string text(code);
  const auto found = text.empty() ? rows_.end() : rows_.find(std::stoi(text));
  if (found == rows_.end()) return {};
  Row& row = found->second;
  if (row.name.starts_with(kKept)) return {.failed = true};
  LineOutcome outcome{.effects = {Log('D', text, row.name)}};
  if (work_ == Work::kDeleteReturning) {
    row.amount = std::to_string(std::stoi(row.amount) + 1);
  } else {
    rows_.erase(found);
  }
  return outcome;
}

std::string TableModel::Text() const {
  std::vector<std::pair<int, std::string>> lines;
  for (const auto& [code, row] : rows_) {
    lines.emplace_back(
        code, std::to_string(code) + '|' + row.name + '|' + row.born + '|' + row.amount + '\n');
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (const auto& [code, line] : lines) text += line;
  return text;
}

}  // namespace imptable
