#include "dialogs/columns/FieldGrid.h"

#include <algorithm>
#include <utility>

#include "dialogs/columns/FieldAssignment.h"

namespace imptable {
namespace {

/// What the open entry begins with, unless the row has an origin that was typed.
constexpr std::string_view kReferenceSign = "@";

}  // namespace

void FieldGrid::SetRows(std::vector<FieldRow> rows) {
  Close();
  rows_ = std::move(rows);
}

void FieldGrid::SetColumns(const std::vector<TableColumn>& columns) {
  std::vector<FieldRow> rows(columns.size());
  for (std::size_t n = 0; n < columns.size(); ++n) {
    rows[n].name = columns[n].name;
    rows[n].format = TableColumnFormat(columns[n]);
  }
  SetRows(std::move(rows));
}

void FieldGrid::MarkKeys(const std::vector<KeyColumn>& key) {
  for (FieldRow& row : rows_) {
    row.is_key = std::any_of(key.begin(), key.end(), [&](const KeyColumn& column) {
      return column.column_name == row.name;
    });
  }
}

void FieldGrid::OpenList(std::size_t row) {
  Close();
  if (row < rows_.size()) list_ = row;
}

void FieldGrid::Pick(std::size_t entry, std::int32_t file_columns) {
  const std::vector<std::string> entries = Entries(file_columns);
  if (!list_ || entry >= entries.size()) return Close();
  const std::size_t row = *std::exchange(list_, std::nullopt);
  std::string former = std::exchange(rows_[row].origin, entries[entry]);
  if (entries[entry] != kVariableOrigin) return;
  std::string text = IsOffered(former) ? std::string(kReferenceSign) : former;
  typing_ = {row, std::move(former), std::move(text)};
}

bool FieldGrid::Type(std::string_view text) {
  if (!typing_) return true;
  if (text.empty() || text == kReferenceSign) {
    Close();
    return true;
  }
  const auto origin = TypedOrigin(module_, text);
  if (!origin) {
    typing_->text = text;
    return false;
  }
  rows_[typing_->row].origin = *origin;
  typing_.reset();
  return true;
}

void FieldGrid::Close() {
  list_.reset();
  if (!typing_) return;
  rows_[typing_->row].origin = std::move(typing_->former);
  typing_.reset();
}

void FieldGrid::AddTo(ColumnLayoutState& state, std::int32_t file_columns) const {
  state.field_rows = rows_;
  for (std::size_t n = 0; n < rows_.size(); ++n) state.field_rows[n].number = std::to_string(n + 1);
  if (list_) state.origin_list = {*list_, Entries(file_columns)};
  if (typing_) state.origin_entry = {typing_->row, typing_->text};
}

std::vector<std::string> FieldGrid::Entries(std::int32_t file_columns) const {
  std::vector<std::string> entries{std::string(kIgnoreOrigin), std::string(kNullOrigin),
                                   std::string(kVariableOrigin)};
  for (std::int32_t n = 1; n <= file_columns; ++n) entries.push_back(FileColumnOrigin(module_, n));
  return entries;
}

bool FieldGrid::IsOffered(const std::string& origin) const {
  return origin.empty() || origin == kIgnoreOrigin || origin == kNullOrigin ||
         origin == kVariableOrigin || NumberOfFileColumnOrigin(module_, origin).has_value();
}

}  // namespace imptable
