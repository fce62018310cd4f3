#ifndef IMPORT_LAYOUT_COLUMN_ENTRY_H_
#define IMPORT_LAYOUT_COLUMN_ENTRY_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "import/layout/DateFormat.h"

namespace imptable {

/// Type codes of file columns, item 1 of a "Colonnes" entry. Stored in task settings: never change.
/// An entry with any other code, or none, is a text.
enum class FileColumnType : std::uint8_t {
  kText = 1,
  kByte = 2,
  kInteger = 3,
  kLong = 4,
  kSingle = 5,
  kDouble = 6,
  kDate = 7,
  kBoolean = 8,
};

/// Whether the file may leave out the decimal separator of such a column, as item 2 says.
constexpr bool MayImplyDecimals(FileColumnType type) {
  return type == FileColumnType::kInteger || type == FileColumnType::kSingle ||
         type == FileColumnType::kDouble;
}

/// One value of "Colonnes" in its items, which are separated by ",": the type, the implied decimals
/// or the style of a date, the width, the separator of a date, the code of its time.
class ColumnEntry {
 public:
  static constexpr std::size_t kItems = 5;

  /// @param text  must outlive the entry.
  explicit ColumnEntry(std::string_view text);

  /// Whether the text has more items than an entry has a use for.
  bool has_too_many_items() const { return too_many_; }

  /// nullopt for a code that is none.
  std::optional<FileColumnType> type() const;

  // Items as they stand; empty past the end.

  std::string_view decimals() const { return items_[1]; }
  std::string_view width() const { return items_[2]; }
  std::string_view date_separator() const { return items_[3]; }
  std::string_view time_item() const { return items_[4]; }

  /// The number of a date style, from 1; 0 for an item that is none of them.
  std::uint8_t date_style() const;

  /// None for an item that isn't the code of a time.
  TimeCode time() const;

 private:
  std::array<std::string_view, kItems> items_;
  bool too_many_ = false;
};

/// The code of a time as an entry has it.
std::string_view TimeItem(TimeCode time);

}  // namespace imptable

#endif  // IMPORT_LAYOUT_COLUMN_ENTRY_H_
