#ifndef DIALOGS_COLUMNS_FIELD_GRID_H_
#define DIALOGS_COLUMNS_FIELD_GRID_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ModuleCommun.h"
#include "dialogs/columns/ColumnLayoutState.h"
#include "odbc/Catalogue.h"

namespace imptable {

/// The rows of Grid2, and the choice of an origin: at most one of the list and the entry is open.
class FieldGrid {
 public:
  /// @param module  borrowed.
  explicit FieldGrid(const ModuleCommun& module) : module_(module) {}

  const std::vector<FieldRow>& rows() const { return rows_; }

  /// Replaces the rows; closes list and entry.
  void SetRows(std::vector<FieldRow> rows);

  /// One row a column, without origins.
  void SetColumns(const std::vector<TableColumn>& columns);

  /// Marks the rows that the key names, and no other.
  void MarkKeys(const std::vector<KeyColumn>& key);

  /// Opens the list; a row that isn't there closes it.
  void OpenList(std::size_t row);

  /// Picks an entry of the open list, by its place; "Variable" opens the entry.
  /// @param file_columns  how many the list offers.
  void Pick(std::size_t entry, std::int32_t file_columns);

  /// Ends the open entry with this text.
  /// @return false when the text is no origin: the entry stays open.
  bool Type(std::string_view text);

  /// Closes list and entry without a choice.
  void Close();

  /// Adds rows, list and entry to what the view shows.
  void AddTo(ColumnLayoutState& state, std::int32_t file_columns) const;

 private:
  /// An open entry; the row's origin is "Variable" until it ends.
  struct Typing {
    std::size_t row;
    std::string former;  // origin
    std::string text;
  };

  std::vector<std::string> Entries(std::int32_t file_columns) const;
  bool IsOffered(const std::string& origin) const;

  const ModuleCommun& module_;
  std::vector<FieldRow> rows_;
  std::optional<std::size_t> list_;
  std::optional<Typing> typing_;
};

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_FIELD_GRID_H_
