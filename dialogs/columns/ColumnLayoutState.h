#ifndef DIALOGS_COLUMNS_COLUMN_LAYOUT_STATE_H_
#define DIALOGS_COLUMNS_COLUMN_LAYOUT_STATE_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/columns/NumberPresenter.h"

namespace imptable {

/// A row of Grid1, one column of the source file; texts as the grid shows them.
struct FileRow {
  std::string number;
  std::string type;
  std::string decimals;  // or the date format
  std::string length;    // shown only for a fixed-width file

  bool operator==(const FileRow&) const = default;
};

/// A row of Grid2, one column of the destination table; texts as the grid shows them.
struct FieldRow {
  std::string number;
  std::string name;
  std::string format;
  std::string origin;
  bool is_key = false;  // the name's cell is light yellow, RGB (255, 255, 192)

  bool operator==(const FieldRow&) const = default;
};

/// List1 with its button Command3, over the origin of one row of Grid2.
struct OriginList {
  std::size_t row = 0;
  std::vector<std::string> entries;

  bool operator==(const OriginList&) const = default;
};

/// Text1, over the origin of one row of Grid2.
struct OriginEntry {
  std::size_t row = 0;
  std::string text;

  bool operator==(const OriginEntry&) const = default;
};

/// All that the tab of the columns shows, and the column count of the options tab. Rows are counted
/// from 0, without the header row.
struct ColumnLayoutState {
  std::vector<std::string> file_header;   // Grid1: three texts, four for a fixed-width file
  std::vector<FileRow> file_rows;         // as many as textNbCol says
  std::vector<std::string> field_header;  // Grid2
  std::vector<FieldRow> field_rows;
  std::string first_line;  // TextFichier; no control characters

  std::optional<OriginList> origin_list;    // hidden when absent
  std::optional<OriginEntry> origin_entry;  // hidden when absent

  // The row to select and scroll to; after a failed check, the row with the fault.
  std::optional<std::size_t> selected_file_row;
  std::optional<std::size_t> selected_field_row;

  bool operator==(const ColumnLayoutState&) const = default;
};

class ColumnLayoutView {
 public:
  virtual ~ColumnLayoutView() = default;
  virtual void Show(const ColumnLayoutState& state) = 0;
};

/// The two dialogs that the type menu opens, each from opening to closing.
class ColumnDialogs {
 public:
  virtual ~ColumnDialogs() = default;

  /// Shows the date format dialog. @return the format text; nullopt when cancelled.
  virtual std::optional<std::string> AskDateFormat(const std::string& format) = 0;

  /// Shows the number dialog. @return the normalised number; nullopt when cancelled.
  virtual std::optional<std::string> AskNumber(NumberKind kind, const std::string& number) = 0;
};

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_COLUMN_LAYOUT_STATE_H_
