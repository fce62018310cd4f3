#ifndef TESTS_ROBUSTNESS_DATABASES_COLUMN_TYPES_H_
#define TESTS_ROBUSTNESS_DATABASES_COLUMN_TYPES_H_

#include <string>
#include <string_view>
#include <vector>

#include "tests/scenarios/Database.h"

namespace imptable {

/// How keys of a column are compared.
enum class KeyKind { kNone, kNumber, kWhole, kBit, kText, kDate, kDateTime, kTime };

struct ColumnType {
  std::string_view sql;
  KeyKind key;
};

/// The types that the catalogue of a database tells apart.
const std::vector<ColumnType>& TypesOf(DatabaseKind kind);

/// Keys of rows, all different, as the import's lines write them.
/// @param zero_dates  whether the database has a date of zeros.
std::vector<std::string> RowKeys(KeyKind kind, bool zero_dates);

/// Such a key as a literal of SQL.
std::string Literal(KeyKind kind, const std::string& key);

/// Whether a line's key may be read as this row's key, whatever the database does with blanks,
/// signs, zeros, letter case and shorter forms.
bool MayName(KeyKind kind, const std::string& line_key, const std::string& row_key);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DATABASES_COLUMN_TYPES_H_
