#ifndef DIALOGS_TESTING_EDITED_LAYOUT_H_
#define DIALOGS_TESTING_EDITED_LAYOUT_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialogs/columns/ColumnLayoutEditor.h"
#include "dialogs/columns/StoredLayout.h"
#include "dialogs/testing/RecordingBoxes.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/TestComponent.h"

namespace imptable {

/// The column layout editor of the task "T1", whose source file is "clients.csv" in a folder of its
/// own; keeps what it shows and asks.
class EditedLayout : private ColumnLayoutView, private ColumnDialogs {
 public:
  explicit EditedLayout(
      std::unique_ptr<TextEncoding> code_page = std::make_unique<Utf8TextEncoding>())
      : component(std::move(code_page)),
        fields{folder.path(), "clients", false, ";"},
        editor(module(), "S1", "Importation Table", boxes, *this, *this) {
    module().location = {kHkeyLocalMachine, "Taches"};
  }

  ModuleCommun& module() { return component.module(); }

  /// Stores values "1", "2", ... of a subkey of the task.
  void Store(std::string_view subkey, const std::vector<std::string>& values) {
    for (std::size_t n = 0; n < values.size(); ++n) {
      component.registry.SetText(PathOf(subkey), std::to_string(n + 1), values[n]);
    }
  }

  /// The values of a subkey of the task, as "1=..."; "<none>" alone when there is no such key.
  std::vector<std::string> Stored(std::string_view subkey) const {
    const KeyPath key{kHkeyLocalMachine, PathOf(subkey)};
    if (!component.registry.HasKey(key)) return {"<none>"};
    std::vector<std::string> values;
    for (const std::string& name : component.registry.ValueNames(key)) {
      values.push_back(name + '=' + component.registry.Text(key, name).value_or("<no text>"));
    }
    return values;
  }

  /// An editor of these stored columns.
  void Load(const std::vector<std::string>& columns, bool fixed_width,
            const std::vector<std::string>& assignments = {}) {
    Store("Colonnes", columns);
    Store("Champs", assignments);
    editor.Load("T1", fixed_width, static_cast<std::int32_t>(columns.size()));
  }

  /// Write the grids into the task's subkeys.
  std::int32_t WriteColonnes() {
    return imptable::WriteColonnes(module(), "T1", editor.fixed_width(), editor.file_columns());
  }
  std::int32_t WriteChamps(bool assigned) {
    return imptable::WriteChamps(module(), "T1", assigned, editor.field_rows());
  }

  void Source(std::string_view bytes) { folder.Write("clients.csv", bytes); }

  /// The rows of Grid1 as "number|type|decimals|length".
  std::vector<std::string> Grid1() const {
    std::vector<std::string> rows;
    for (const FileRow& row : shown.file_rows) {
      rows.push_back(row.number + '|' + row.type + '|' + row.decimals + '|' + row.length);
    }
    return rows;
  }

  /// The rows of Grid2 as "number|name|format|origin", key columns with a "*" at the end.
  std::vector<std::string> Grid2() const {
    std::vector<std::string> rows;
    for (const FieldRow& row : shown.field_rows) {
      rows.push_back(row.number + '|' + row.name + '|' + row.format + '|' + row.origin +
                     (row.is_key ? "*" : ""));
    }
    return rows;
  }

  std::vector<std::string> Origins() const {
    std::vector<std::string> origins;
    for (const FieldRow& row : shown.field_rows) origins.push_back(row.origin);
    return origins;
  }

  TestComponent component;
  TemporaryFolder folder;
  SourceFields fields;
  RecordingBoxes boxes;
  ColumnLayoutState shown;
  int times_shown = 0;
  std::vector<std::string> asked;     // "Date|format", "Length|number", "Decimals|number"
  std::optional<std::string> answer;  // of the dialog that is asked next
  ColumnLayoutEditor editor;

 private:
  static std::string PathOf(std::string_view subkey) {
    return "Taches\\T1\\" + std::string(subkey);
  }
  void Show(const ColumnLayoutState& state) override {
    shown = state;
    ++times_shown;
  }
  std::optional<std::string> AskDateFormat(const std::string& format) override {
    asked.push_back("Date|" + format);
    return answer;
  }
  std::optional<std::string> AskNumber(NumberKind kind, const std::string& number) override {
    asked.push_back((kind == NumberKind::kLength ? "Length|" : "Decimals|") + number);
    return answer;
  }
};

}  // namespace imptable

#endif  // DIALOGS_TESTING_EDITED_LAYOUT_H_
