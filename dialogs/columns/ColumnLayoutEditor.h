#ifndef DIALOGS_COLUMNS_COLUMN_LAYOUT_EDITOR_H_
#define DIALOGS_COLUMNS_COLUMN_LAYOUT_EDITOR_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ModuleCommun.h"
#include "dialogs/ConnectedListing.h"
#include "dialogs/DialogBoxes.h"
#include "dialogs/columns/ColumnLayoutState.h"
#include "dialogs/columns/FieldGrid.h"
#include "dialogs/columns/FileColumn.h"
#include "dialogs/columns/SourceFile.h"
#include "dialogs/columns/StoredLayout.h"
#include "dialogs/columns/TypeMenu.h"

namespace imptable {

/// As many columns as a task can store.
inline constexpr std::int32_t kMostFileColumns = 32767;

/// Edits the columns of the source file (Grid1) and where the destination table's columns come from
/// (Grid2). Every event shows the state anew. Rows are counted from 0, without the header row; an
/// event on a row that isn't there does nothing.
/// Errors: a box shows what failed, and the editor stays usable; only writing throws.
class ColumnLayoutEditor {
 public:
  /// @param module, boxes, view, dialogs  borrowed.
  /// @param scenario  whose variables "@" references name.
  /// @param caption  of the boxes.
  ColumnLayoutEditor(ModuleCommun& module, std::string scenario, std::string caption,
                     DialogBoxes& boxes, ColumnLayoutView& view, ColumnDialogs& dialogs);

  /// Shows the editor of a new task: delimited, no column. Load does it for an existing one.
  void Open();

  /// Fills both grids from "Colonnes" and "Champs". Values that can't be read are named in a box
  /// (message 111), one box for each subkey; all else is loaded.
  /// @param column_count  rows of Grid1; one below 0 counts as 0.
  void Load(std::string_view task, bool fixed_width, std::int32_t column_count);

  /// The checks before saving, over Grid1 and, when the columns are assigned, Grid2.
  /// @return false after the box of the first failure; its row is then the selected one.
  bool CheckColumns(bool assigned);

  std::int32_t column_count() const { return static_cast<std::int32_t>(file_columns_.size()); }
  bool fixed_width() const { return fixed_width_; }

  /// The rows of Grid1 and Grid2.
  const std::vector<FileColumn>& file_columns() const { return file_columns_; }
  const std::vector<FieldRow>& field_rows() const { return fields_.rows(); }

  /// The spinner on textNbCol: one column more or less, never below 0.
  void StepColumnCount(bool up);

  /// textNbCol is left. An empty text counts as 0. A text that is no whole number up to
  /// kMostFileColumns shows message 128, and the former count is back.
  void TypeColumnCount(std::string_view text);

  /// "Fixe" or "Délimité" is chosen: the lengths appear or are dropped, the columns are counted.
  void ChooseFileFormat(bool fixed_width, const SourceFields& fields);

  /// LectureDebutFichier: counts the columns in the source file's first line and shows that line. A
  /// missing file leaves the columns as they are, without a box; an empty file leaves them after
  /// message 113.
  void CountColumns(const SourceFields& fields);

  /// Shows the first line of the source file and never a box. Message 113 stands there for an empty
  /// file, the fault for a file that can't be read, and nothing for a missing file.
  void ShowFirstLine(const SourceFields& fields);

  /// Grid1 is clicked. @return which entries the menu offers.
  TypeMenuState ClickFileRow(std::size_t row);

  /// An entry of the menu is chosen for a row of Grid1.
  void ChooseType(std::size_t row, TypeEntry entry);

  /// Column 3 of Grid2 is clicked, or Command3: the list opens.
  void ClickOrigin(std::size_t row);

  /// An entry of the list is picked. "Variable" opens the entry Text1 and is the row's origin until
  /// something is typed there.
  void PickOrigin(std::size_t entry);

  /// The list is left without a choice, or Text1 is cancelled: the former origin is back.
  void LeaveOrigin();

  /// Text1 is confirmed or left. The text, a constant or "@" and a variable's name, becomes the
  /// origin. A text that "Champs" can't hold shows message 128. An empty text or a lone "@" puts
  /// the former origin back.
  void TypeOrigin(std::string_view text);

  /// cmdInfo: connects and rebuilds Grid2 from the table's columns, without origins and with the
  /// key columns marked. Grid2 stays as it is when that fails. A table without columns shows
  /// message 129.
  void ListTableColumns(const ConnectionFields& fields);

  /// Connects and marks the key columns. Does nothing while Grid2 is empty or there is no table.
  void RefreshKeyMarks(const ConnectionFields& fields);

 private:
  ColumnLayoutState State() const;
  void Show() { view_.Show(State()); }
  void SetColumnCount(std::size_t count);
  void CountStart(const FileStart& start, const std::string& separator);
  std::string FirstLineText(const FileStart& start) const;
  std::string Preview(std::string_view text) const;
  void MarkKeys(ConnectedListing& listing);
  void Warn(Message message);
  void Warn(const RuntimeFault& fault);
  void WarnOfUnreadable(const std::vector<UnreadableValue>& values);

  ModuleCommun& module_;
  std::string scenario_;
  std::string caption_;
  DialogBoxes& boxes_;
  ColumnLayoutView& view_;
  ColumnDialogs& dialogs_;

  bool fixed_width_ = false;
  std::vector<FileColumn> file_columns_;
  FieldGrid fields_;
  std::string first_line_;
  std::optional<std::size_t> selected_file_row_;
  std::optional<std::size_t> selected_field_row_;
};

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_COLUMN_LAYOUT_EDITOR_H_
