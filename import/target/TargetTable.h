#ifndef IMPORT_TARGET_TARGET_TABLE_H_
#define IMPORT_TARGET_TARGET_TABLE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "import/target/RecordParser.h"
#include "import/values/ParameterBuffer.h"
#include "odbc/Catalogue.h"

namespace imptable {

/// The table that a task writes to.
TableName TableOf(const OpenedTask& task);

bool HoldsBytes(std::int16_t sql_type);

/// Whether the column holds several bits, which ODBC calls bytes.
bool IsBitString(const TableColumn& column);

/// Binds parameter `number` (from 1) of a prepared statement to the field of the buffer that the
/// column's SQL type uses.
SQLRETURN BindParameter(SQLHSTMT statement, SQLUSMALLINT number, const TableColumn& column,
                        ParameterBuffer& buffer);

/// The target table of a run: its columns and a value buffer for each.
class TargetTable {
 public:
  /// @param module, session  borrowed; must outlive the table.
  TargetTable(const ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session) {}

  /// Known once the columns are read.
  const TableName& name() const { return name_; }

  /// Reads the columns. Columns whose assignment in "Champs" ends with "Ignore" are ignored. With
  /// `with_special_columns`, so are those that the database sets itself whenever it changes a row.
  /// @return false after a diagnostic has been reported.
  bool Load(bool with_special_columns);

  const std::vector<TargetColumn>& columns() const { return columns_; }

  /// Binds a parameter to the buffer of the column of this index.
  SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT number, std::size_t column);

  /// The same for a key: rows are looked for by this parameter.
  SQLRETURN BindKey(SQLHSTMT statement, SQLUSMALLINT number, std::size_t column);

  const ParameterBuffer& buffer(std::size_t column) const { return buffers_[column]; }

  /// The parser of the run's lines. It fills all columns except those that are ignored and not
  /// bound.
  /// @throws RuntimeFault  when the column layout can't be understood, or no line can give any
  /// bound column a value.
  RecordParser MakeParser();

  /// The same for lines that do nothing when no row has their key.
  /// @throws RuntimeFault  also when no line can give one of the keys a value.
  RecordParser MakeKeyedParser();

  /// "INSERT INTO " table " (" columns that aren't ignored ")" " VALUES (" "?, ?" ")".
  std::string InsertText() const;

  /// Prepares InsertText() on the statement and binds its parameters. A failure is reported.
  /// @param information_fails  whether the driver's information about the text is a failure too.
  bool PrepareInsert(SQLHSTMT statement, bool information_fails);

 private:
  bool LoadColumns(Catalogue& catalogue);
  bool LeaveOutVersions(Catalogue& catalogue);
  RecordPlan MakePlan();

  const ModuleCommun& module_;
  OdbcSession& session_;
  TableName name_;
  std::vector<TargetColumn> columns_;
  std::vector<ParameterBuffer> buffers_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_TARGET_TABLE_H_
