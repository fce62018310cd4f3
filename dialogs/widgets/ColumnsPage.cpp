#include "dialogs/widgets/ColumnsPage.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/textctrl.h>

#include <array>
#include <utility>
#include <vector>

#include "dialogs/columns/TypeMenu.h"

namespace imptable {
namespace {

constexpr int kTypeColumn = 1;
constexpr int kNameColumn = 1;
constexpr int kOriginColumn = 3;
constexpr int kLineWidth = 40;  // characters

constexpr std::array kNumericEntries{TypeEntry::kByte, TypeEntry::kInteger, TypeEntry::kLong,
                                     TypeEntry::kSingle, TypeEntry::kDouble};

constexpr int IdOf(TypeEntry entry) { return wxID_HIGHEST + 1 + static_cast<int>(entry); }

/// Menu `types`, for one row.
std::unique_ptr<wxMenu> MakeTypeMenu(const ModuleCommun& module, const WidgetText& text,
                                     const TypeMenuState& state) {
  const auto append = [&](wxMenu& menu, TypeEntry entry) {
    return menu.Append(IdOf(entry), text.Shown(TypeMenuCaption(module, entry)));
  };
  auto menu = std::make_unique<wxMenu>();
  append(*menu, TypeEntry::kTexte);
  auto numeric = std::make_unique<wxMenu>();
  for (const TypeEntry entry : kNumericEntries) append(*numeric, entry);
  menu->AppendSubMenu(numeric.release(), text.Shown(module.MessageText(Message::kNumeric)));
  append(*menu, TypeEntry::kDate);
  append(*menu, TypeEntry::kBoolean);
  if (state.line_visible) menu->AppendSeparator();
  if (state.length_visible) append(*menu, TypeEntry::kLongueur)->Enable(state.length_enabled);
  append(*menu, TypeEntry::kDecimal)->Enable(state.decimal_enabled);
  return menu;
}

std::vector<std::vector<std::string>> Cells(const std::vector<FileRow>& rows) {
  std::vector<std::vector<std::string>> cells;
  cells.reserve(rows.size());
  for (const FileRow& row : rows) cells.push_back({row.number, row.type, row.decimals, row.length});
  return cells;
}

std::vector<std::vector<std::string>> Cells(const std::vector<FieldRow>& rows) {
  std::vector<std::vector<std::string>> cells;
  cells.reserve(rows.size());
  for (const FieldRow& row : rows) cells.push_back({row.number, row.name, row.format, row.origin});
  return cells;
}

}  // namespace

ColumnsPage::ColumnsPage(wxPanel* page, PageBuilder& build, const ModuleCommun& module,
                         const WidgetText& text, std::function<ColumnLayoutEditor&()> editor)
    : page_(page),
      module_(module),
      text_(text),
      editor_(std::move(editor)),
      first_line_(build.Text(page, "TextFichier", kLineWidth, wxTE_READONLY)),
      file_grid_(new ColumnGrid(page, text, [this](const GridPlace& place) { AskType(place); })),
      field_grid_(
          new ColumnGrid(page, text, [this](const GridPlace& place) { AskOrigin(place); })) {
  first_line_->SetFont(wxFont(wxFontInfo(page->GetFont().GetFractionalPointSize())
                                  .Family(wxFONTFAMILY_TELETYPE)
                                  .FaceName("Courier New")));
  build.Add(file_grid_, "Grid1");
  build.Add(field_grid_, "Grid2");
  wxButton* const list_columns = build.Button(page, "cmdInfo");

  auto* const grids = new wxBoxSizer(wxHORIZONTAL);
  grids->Add(file_grid_, wxSizerFlags(2).Expand().Border(wxRIGHT));
  grids->Add(field_grid_, wxSizerFlags(3).Expand().Border(wxLEFT));
  auto* const all = new wxBoxSizer(wxVERTICAL);
  all->Add(first_line_, wxSizerFlags().Expand().Border());
  all->Add(grids, wxSizerFlags(1).Expand().Border());
  all->Add(list_columns, wxSizerFlags().Right().Border());
  page->SetSizer(all);

  picker_ = std::make_unique<OriginPicker>(
      page, build, text,
      OriginPicker::Handlers{
          .open = [this](std::size_t row) { editor_().ClickOrigin(row); },
          .pick = [this](std::size_t entry) { editor_().PickOrigin(entry); },
          .type = [this](const std::string& origin) { editor_().TypeOrigin(origin); },
          .leave = [this] { editor_().LeaveOrigin(); }});
}

void ColumnsPage::AskType(const GridPlace& place) {
  const auto row = static_cast<std::size_t>(place.row);
  file_grid_->GoTo(place.row, kTypeColumn);
  const TypeMenuState state = editor_().ClickFileRow(row);
  const std::unique_ptr<wxMenu> menu = MakeTypeMenu(module_, text_, state);
  const int id = page_->GetPopupMenuSelectionFromUser(*menu, page_->ScreenToClient(place.screen));
  if (id == wxID_NONE) return;
  editor_().ChooseType(row, static_cast<TypeEntry>(id - IdOf(TypeEntry::kTexte)));
}

void ColumnsPage::AskOrigin(const GridPlace& place) {
  if (place.column == kOriginColumn) editor_().ClickOrigin(static_cast<std::size_t>(place.row));
}

void ColumnsPage::Show(const ColumnLayoutState& state) {
  const wxString line = text_.Shown(state.first_line);
  if (first_line_->GetValue() != line) first_line_->ChangeValue(line);
  file_grid_->ShowRows(state.file_header, Cells(state.file_rows));
  field_grid_->ShowRows(state.field_header, Cells(state.field_rows));
  for (std::size_t row = 0; row < state.field_rows.size(); ++row) {
    field_grid_->Mark(static_cast<int>(row), kNameColumn, state.field_rows[row].is_key);
  }
  if (state.selected_file_row) {
    file_grid_->GoTo(static_cast<int>(*state.selected_file_row), kTypeColumn);
  }
  if (state.selected_field_row) {
    field_grid_->GoTo(static_cast<int>(*state.selected_field_row), kOriginColumn);
  }
  const bool closed = picker_->Show(state, [this](std::size_t row) {
    return field_grid_->CellOnScreen(static_cast<int>(row), kOriginColumn);
  });
  if (closed) field_grid_->SetFocus();
}

}  // namespace imptable
