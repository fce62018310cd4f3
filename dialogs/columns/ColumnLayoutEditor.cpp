#include "dialogs/columns/ColumnLayoutEditor.h"

#include <algorithm>
#include <utility>

#include "core/Blanks.h"
#include "core/NumberText.h"
#include "dialogs/PrintableText.h"
#include "dialogs/columns/ColumnCheck.h"

namespace imptable {
namespace {

constexpr std::size_t kMostPreviewCharacters = 8192;

// Limits for the box that names unreadable values, so that it fits on a screen.
constexpr std::size_t kMostNamedValues = 10;
constexpr std::size_t kMostValueCharacters = 60;

}  // namespace

ColumnLayoutEditor::ColumnLayoutEditor(ModuleCommun& module, std::string scenario,
                                       std::string caption, DialogBoxes& boxes,
                                       ColumnLayoutView& view, ColumnDialogs& dialogs)
    : module_(module),
      scenario_(std::move(scenario)),
      caption_(std::move(caption)),
      boxes_(boxes),
      view_(view),
      dialogs_(dialogs),
      fields_(module) {}

ColumnLayoutState ColumnLayoutEditor::State() const {
  ColumnLayoutState state;
  const auto text = [&](Message message) { return module_.MessageText(message); };
  state.file_header = {text(Message::kNumber), text(Message::kColumnType),
                       text(Message::kDecimals)};
  if (fixed_width_) {
    state.file_header.push_back(TypeMenuCaption(module_, TypeEntry::kLongueur));
  }
  for (const FileColumn& column : file_columns_) {
    state.file_rows.push_back({std::to_string(state.file_rows.size() + 1),
                               FileColumnTypeText(module_, column.type), column.decimals,
                               column.length});
  }
  state.field_header = {text(Message::kNumber), text(Message::kColumnName), text(Message::kFormat),
                        text(Message::kOrigin)};
  fields_.AddTo(state, column_count());
  state.first_line = first_line_;
  state.selected_file_row = selected_file_row_;
  state.selected_field_row = selected_field_row_;
  return state;
}

void ColumnLayoutEditor::Open() { Show(); }

void ColumnLayoutEditor::Load(std::string_view task, bool fixed_width, std::int32_t column_count) {
  fixed_width_ = fixed_width;
  file_columns_.clear();
  fields_.SetRows({});
  selected_file_row_.reset();
  selected_field_row_.reset();
  SetColumnCount(static_cast<std::size_t>(std::max(column_count, 0)));
  std::vector<UnreadableValue> unreadable;
  try {
    file_columns_ = ReadColonnes(module_, task, fixed_width, file_columns_.size(), unreadable);
    WarnOfUnreadable(std::exchange(unreadable, {}));
    fields_.SetRows(ReadChamps(module_, task, unreadable));
    WarnOfUnreadable(unreadable);
  } catch (const RuntimeFault& fault) {
    boxes_.Warn(module_.MessageText(Message::kRegistryFailure) + '\n' + module_.FaultText(fault),
                caption_);
  }
  Show();
}

bool ColumnLayoutEditor::CheckColumns(bool assigned) {
  selected_file_row_.reset();
  selected_field_row_.reset();
  auto failure = CheckFileColumns(module_, file_columns_, fixed_width_);
  if (failure) {
    selected_file_row_ = failure->row;
  } else if (assigned) {
    failure = CheckFields(module_, fields_.rows(), file_columns_.size());
    if (failure) selected_field_row_ = failure->row;
  }
  Show();
  if (failure) boxes_.Warn(failure->text, caption_);
  return !failure;
}

void ColumnLayoutEditor::SetColumnCount(std::size_t count) {
  file_columns_.resize(count);
  if (selected_file_row_ >= count) selected_file_row_.reset();
}

void ColumnLayoutEditor::StepColumnCount(bool up) {
  const std::int32_t count = column_count() + (up ? 1 : -1);
  SetColumnCount(static_cast<std::size_t>(std::clamp(count, 0, kMostFileColumns)));
  Show();
}

void ColumnLayoutEditor::TypeColumnCount(std::string_view text) {
  const auto count = IsBlank(text) ? std::optional<std::int32_t>(0) : ReadWholeNumber(text);
  if (count && *count <= kMostFileColumns) {
    SetColumnCount(static_cast<std::size_t>(*count));
  } else {
    Warn(Message::kIncorrectValue);
  }
  Show();
}

void ColumnLayoutEditor::ChooseFileFormat(bool fixed_width, const SourceFields& fields) {
  fixed_width_ = fixed_width;
  if (!fixed_width) {
    for (FileColumn& column : file_columns_) column.length.clear();
  }
  Show();
  CountColumns(fields);
}

void ColumnLayoutEditor::CountColumns(const SourceFields& fields) {
  first_line_.clear();
  try {
    const auto start = ReadFileStart(module_, scenario_, fields);
    if (start) CountStart(*start, fields.separator);
  } catch (const RuntimeFault& fault) {
    Warn(fault);
  }
  Show();
}

void ColumnLayoutEditor::CountStart(const FileStart& start, const std::string& separator) {
  first_line_ = FirstLineText(start);
  if (start.is_empty) {
    boxes_.Inform(module_.MessageText(Message::kFileIsEmpty), caption_);
    return;
  }
  if (start.line.find('\0') != std::string::npos) {
    throw RuntimeFault(FaultNumber::kInvalidFileFormat, start.path);
  }
  const std::size_t count = CountFields(start.line, separator, module_.platform.encoding.IsUtf8());
  if (!start.is_complete || count > static_cast<std::size_t>(kMostFileColumns)) {
    throw RuntimeFault(FaultNumber::kOverflow, start.path);
  }
  boxes_.Inform(module_.MessageText(Message::kFileContains) + std::to_string(count) +
                    module_.MessageText(Message::kColumnsContained),
                caption_);
  SetColumnCount(count);
}

void ColumnLayoutEditor::ShowFirstLine(const SourceFields& fields) {
  first_line_.clear();
  try {
    const auto start = ReadFileStart(module_, scenario_, fields);
    if (start) first_line_ = FirstLineText(*start);
  } catch (const RuntimeFault& fault) {
    first_line_ = Preview(module_.FaultText(fault));
  }
  Show();
}

std::string ColumnLayoutEditor::FirstLineText(const FileStart& start) const {
  return start.is_empty ? module_.MessageText(Message::kFileIsEmpty) : Preview(start.line);
}

std::string ColumnLayoutEditor::Preview(std::string_view text) const {
  return PrintableText(module_.platform.encoding, text, kMostPreviewCharacters);
}

TypeMenuState ColumnLayoutEditor::ClickFileRow(std::size_t row) {
  if (row >= file_columns_.size()) return {};
  selected_file_row_ = row;
  Show();
  return TypeMenuFor(file_columns_[row].type, fixed_width_);
}

void ColumnLayoutEditor::ChooseType(std::size_t row, TypeEntry entry) {
  if (row >= file_columns_.size()) return;
  FileColumn& column = file_columns_[row];
  const TypeMenuState menu = TypeMenuFor(column.type, fixed_width_);
  const auto set = [&](FileColumnType type, std::string decimals) {
    column.type = type;
    column.decimals = std::move(decimals);
  };
  const auto ask = [&](NumberKind kind, std::string& cell) {
    if (const auto number = dialogs_.AskNumber(kind, cell)) cell = *number;
  };
  switch (entry) {
    case TypeEntry::kTexte:
      set(FileColumnType::kText, "");
      break;
    case TypeEntry::kByte:
      set(FileColumnType::kByte, "");
      break;
    case TypeEntry::kInteger:
      set(FileColumnType::kInteger, "");
      break;
    case TypeEntry::kLong:
      set(FileColumnType::kLong, "");
      break;
    case TypeEntry::kSingle:
      set(FileColumnType::kSingle, "0");
      break;
    case TypeEntry::kDouble:
      set(FileColumnType::kDouble, "0");
      break;
    case TypeEntry::kDate: {
      const bool is_date = column.type == FileColumnType::kDate;
      const auto format = dialogs_.AskDateFormat(is_date ? column.decimals : std::string());
      if (format) set(FileColumnType::kDate, *format);
      break;
    }
    case TypeEntry::kBoolean:
      set(FileColumnType::kBoolean, "");
      if (fixed_width_) column.length = "1";
      break;
    case TypeEntry::kLongueur:
      if (menu.length_enabled) ask(NumberKind::kLength, column.length);
      break;
    case TypeEntry::kDecimal:
      if (menu.decimal_enabled) ask(NumberKind::kDecimals, column.decimals);
      break;
  }
  Show();
}

void ColumnLayoutEditor::ClickOrigin(std::size_t row) {
  fields_.OpenList(row);
  if (row < fields_.rows().size()) selected_field_row_ = row;
  Show();
}

void ColumnLayoutEditor::PickOrigin(std::size_t entry) {
  fields_.Pick(entry, column_count());
  Show();
}

void ColumnLayoutEditor::LeaveOrigin() {
  fields_.Close();
  Show();
}

void ColumnLayoutEditor::TypeOrigin(std::string_view text) {
  if (!fields_.Type(text)) Warn(Message::kIncorrectValue);
  Show();
}

void ColumnLayoutEditor::ListTableColumns(const ConnectionFields& fields) {
  try {
    ConnectedListing listing(module_, scenario_, fields);
    std::vector<TableColumn> columns;
    if (listing.connected() && listing.catalogue().GetTableColumns(columns)) {
      if (columns.empty()) {
        Warn(Message::kChooseTable);
      } else {
        fields_.SetColumns(columns);
        selected_field_row_.reset();
        MarkKeys(listing);
      }
    }
  } catch (const RuntimeFault& fault) {
    Warn(fault);
  }
  Show();
}

void ColumnLayoutEditor::RefreshKeyMarks(const ConnectionFields& fields) {
  if (fields_.rows().empty() || fields.data_source.empty() || fields.table.empty()) return;
  try {
    ConnectedListing listing(module_, scenario_, fields);
    if (listing.connected()) MarkKeys(listing);
  } catch (const RuntimeFault& fault) {
    Warn(fault);
  }
  Show();
}

void ColumnLayoutEditor::MarkKeys(ConnectedListing& listing) {
  std::vector<KeyColumn> key;
  if (listing.catalogue().GetUniqueIndexColumns(key)) fields_.MarkKeys(key);
}

void ColumnLayoutEditor::Warn(Message message) {
  boxes_.Warn(module_.MessageText(message), caption_);
}

void ColumnLayoutEditor::Warn(const RuntimeFault& fault) {
  boxes_.Warn(module_.FaultText(fault), caption_);
}

void ColumnLayoutEditor::WarnOfUnreadable(const std::vector<UnreadableValue>& values) {
  if (values.empty()) return;
  std::string text = module_.MessageText(Message::kRegistryFailure);
  for (std::size_t n = 0; n < std::min(values.size(), kMostNamedValues); ++n) {
    text += "\n\"" + values[n].name + "\" = \"" +
            PrintableText(module_.platform.encoding, values[n].text, kMostValueCharacters) + '"';
  }
  if (values.size() > kMostNamedValues) text += "\n...";
  boxes_.Warn(text, caption_);
}

}  // namespace imptable
