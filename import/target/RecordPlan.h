#ifndef IMPORT_TARGET_RECORD_PLAN_H_
#define IMPORT_TARGET_RECORD_PLAN_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "core/ModuleCommun.h"
#include "import/layout/ColumnLayout.h"
#include "import/values/ParameterBuffer.h"
#include "odbc/Catalogue.h"

namespace imptable {

/// A column of the target table, and what the run's statements do with it.
struct TargetColumn : TableColumn {
  bool ignored = false;  // not to be written
  bool bound = false;    // a statement uses its buffer
  bool is_key = false;   // rows are looked for by it
};

/// How one table column is filled from a file field, for every line of a run.
struct FieldPlan {
  enum class Format : std::uint8_t { kAsIs, kDate, kReplaceSeparator, kInsertSeparator };
  enum class Target : std::uint8_t { kText, kNumber, kDate };

  std::size_t field = 0;  // of the file, from 0
  Format format = Format::kAsIs;
  Target target = Target::kText;
  DateFormat date;
  std::size_t decimals = 0;
  std::string separator;              // the decimal separator to write
  bool is_key = false;                // rows are looked for by it
  ParameterBuffer* buffer = nullptr;  // borrowed from the run's buffers
};

/// What is known of a run's records before its first line.
struct RecordPlan {
  bool delimited = false;
  bool utf8 = false;
  bool blanks_are_null = false;
  std::string delimiter;
  std::vector<std::size_t> widths;  // characters a file column, in a fixed-width file
  std::size_t column_count = 0;     // of the table
  int century = 0;                  // first two digits of the current year
  std::string decimal_separator;    // the user's
  std::vector<FieldPlan> fields;    // the table columns that file fields feed

  /// A column can't take its constant or variable, so no line can be converted.
  bool unconvertible = false;

  /// Per table column, whether no line can give it a value.
  std::vector<bool> always_null;

  /// Whether the value that is the same for every line is empty. A record of one column is empty
  /// when its value is.
  bool fixed_value_is_empty = true;
};

/// Works out the plan from the run's settings, and stores the values that are the same for every
/// line into their buffers.
/// A column that is ignored and not bound isn't filled, so that its value can't fail a line.
/// @param buffers  one per column; borrowed by the plan.
/// @throws RuntimeFault  when "Colonnes" or "Champs" can't be understood.
RecordPlan CompileRecordPlan(const ModuleCommun& module, const std::vector<TargetColumn>& columns,
                             std::vector<ParameterBuffer>& buffers);

/// The value without its trailing blanks when blanks are null; empty when it is "Null".
std::string_view StoredPart(std::string_view value, const RecordPlan& plan);

/// Stores one value into the field of the buffer that the column's SQL type uses; an empty value is
/// null.
/// @return false when the value can't be converted to that type.
bool StoreValue(std::string_view value, FieldPlan::Target target, const RecordPlan& plan,
                ParameterBuffer& buffer);

/// The field of the buffer that a column of this SQL type uses.
FieldPlan::Target TargetOf(std::int16_t sql_type);

}  // namespace imptable

#endif  // IMPORT_TARGET_RECORD_PLAN_H_
