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

/// Whether the file may leave out the decimal separator of such a column: item 2 then says where it
/// belongs.
constexpr bool MayImplyDecimals(FileColumnType type) {
  return type == FileColumnType::kInteger || type == FileColumnType::kSingle ||
         type == FileColumnType::kDouble;
}

/// One value of "Colonnes", split into its items at each ",": the type, the implied decimals or the
/// date style, the width, the date separator, the time code.
class ColumnEntry {
 public:
  static constexpr std::size_t kItems = 5;

  /// @param text  must outlive the entry.
  explicit ColumnEntry(std::string_view text);

  /// Whether the text has more items than an entry has.
  bool has_too_many_items() const { return too_many_; }

  /// nullopt when the item is no type code.
  std::optional<FileColumnType> type() const;

  // Items as the text has them; empty when it has fewer.

  std::string_view decimals() const { return items_[1]; }
  std::string_view width() const { return items_[2]; }
  std::string_view date_separator() const { return items_[3]; }
  std::string_view time_item() const { return items_[4]; }

  /// The number of a date style, from 1; 0 when the item is no such number.
  std::uint8_t date_style() const;

  /// kNone when the item is no time code.
  TimeCode time() const;

 private:
  std::array<std::string_view, kItems> items_;
  bool too_many_ = false;
};

/// The item that stands for a time in an entry.
std::string_view TimeItem(TimeCode time);

}  // namespace imptable

#endif  // IMPORT_LAYOUT_COLUMN_ENTRY_H_
