#include "dialogs/TablePickerPresenter.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

/// The names of the columns in the key's order, as "Cle/Index" holds them: separated by ",".
std::string KeyLine(std::vector<KeyColumn> columns) {
  std::stable_sort(columns.begin(), columns.end(),
                   [](const KeyColumn& a, const KeyColumn& b) { return a.position < b.position; });
  std::string line;
  for (const KeyColumn& column : columns) {
    if (!line.empty()) line += ',';
    line += column.column_name;
  }
  return line;
}

/// The columns of each index. The indexes are in the order of their first columns in the list.
std::vector<std::vector<KeyColumn>> ByIndex(const std::vector<KeyColumn>& columns) {
  std::vector<std::vector<KeyColumn>> indexes;
  for (const KeyColumn& column : columns) {
    const auto index = std::find_if(indexes.begin(), indexes.end(), [&](const auto& members) {
      return members.front().key_name == column.key_name;
    });
    if (index == indexes.end()) {
      indexes.push_back({column});
    } else {
      index->push_back(column);
    }
  }
  return indexes;
}

/// False for an index on an expression: a file column can't be compared with an expression.
bool HasOnlyColumns(const std::vector<KeyColumn>& key) {
  return std::none_of(key.begin(), key.end(),
                      [](const KeyColumn& column) { return column.column_name.empty(); });
}

void AddOnce(std::vector<std::string>& lines, std::string line) {
  if (std::find(lines.begin(), lines.end(), line) == lines.end()) lines.push_back(std::move(line));
}

}  // namespace

TablePickerPresenter::TablePickerPresenter(const DialogServices& services, PickerMode mode,
                                           std::string scenario, ConnectionFields fields)
    : services_(services),
      mode_(mode),
      scenario_(std::move(scenario)),
      fields_(std::move(fields)) {}

void TablePickerPresenter::Open(TablePickerView& view) {
  view_ = &view;
  const ModuleCommun& module = services_.module;
  state_.caption = module.MessageText(mode_ == PickerMode::kTables ? Message::kChooseTable
                                                                   : Message::kSelectKey);
  state_.cmdValider = module.MessageText(Message::kConfirm);
  state_.cmdAnnuler = module.MessageText(Message::kCancel);
  view.Show(state_);
  listing_ = true;
  try {
    List();
  } catch (const RuntimeFault& fault) {
    Warn(module.FaultText(fault));
  }
  listing_ = false;
  view.Show(state_);
}

void TablePickerPresenter::List() {
  bool without_key = false;
  {
    const Hourglass hourglass(services_.module.platform.mouse_pointer);
    ConnectedListing listing(services_.module, scenario_, fields_);
    if (!listing.connected()) return;
    if (mode_ == PickerMode::kTables) {
      ListTables(listing.catalogue());
    } else {
      without_key = ListKeys(listing.catalogue()) && state_.lines.empty();
    }
  }
  if (without_key) Warn(services_.module.MessageText(Message::kTableWithoutKey));
}

void TablePickerPresenter::ListTables(Catalogue& catalogue) {
  std::vector<TableName> tables;
  catalogue.GetTables(tables);
  for (const TableName& table : tables) state_.lines.push_back(table.owner + '\t' + table.name);
}

bool TablePickerPresenter::ListKeys(Catalogue& catalogue) {
  std::vector<KeyColumn> columns;
  bool listed = true;
  if (catalogue.CanListPrimaryKeys()) {
    listed = catalogue.GetPrimaryKeyColumns(columns);
    if (listed && !columns.empty()) AddOnce(state_.lines, KeyLine(columns));
  }
  if (!catalogue.GetUniqueIndexColumns(columns)) return false;
  for (std::vector<KeyColumn>& index : ByIndex(columns)) {
    if (HasOnlyColumns(index)) AddOnce(state_.lines, KeyLine(std::move(index)));
  }
  return listed;
}

void TablePickerPresenter::Confirm(std::optional<std::size_t> line) {
  if (listing_) return;
  if (line && *line < state_.lines.size()) picked_ = state_.lines[*line];
  view_->CloseDialog();
}

void TablePickerPresenter::Cancel() {
  if (listing_) return;
  view_->CloseDialog();
}

void TablePickerPresenter::Warn(const std::string& text) {
  services_.boxes.Warn(text, services_.module.MessageText(Message::kTitle));
}

}  // namespace imptable
