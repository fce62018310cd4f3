#ifndef ODBC_CATALOGUE_H_
#define ODBC_CATALOGUE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "odbc/OdbcSession.h"

namespace imptable {

/// A column of a table, as the driver describes it.
struct TableColumn {
  std::string name;
  std::int16_t sql_type = 0;  // ODBC SQL type code
  std::string type_name;
  std::int32_t precision = 0;
  std::int16_t scale = 0;
  std::int16_t nullable = 0;
};

/// A table of the data source. The owner is empty where the data source knows none.
struct TableName {
  std::string owner;
  std::string name;
};

/// A member of the primary key or of a unique index.
struct KeyColumn {
  std::string column_name;
  std::int16_t position = 0;  // within the key, from 1
  std::string key_name;       // of the index; empty for a primary key
};

/// The catalogue queries on one table, each on a statement of its own. Lists are in the driver's
/// order. A query returns false after it has reported a diagnostic; its list then holds what was
/// fetched so far. An empty result is a success.
class Catalogue {
 public:
  /// @param session  borrowed.
  Catalogue(OdbcSession& session, TableName table) : session_(session), table_(std::move(table)) {}

  bool GetTableColumns(std::vector<TableColumn>& columns);

  /// Only the names and types of the table's columns. The table's name isn't escaped.
  bool GetColumnTypes(std::vector<TableColumn>& columns);

  /// The names of the columns that the database sets itself whenever it changes a row.
  bool GetSpecialColumns(std::vector<std::string>& names);

  /// Whether the driver has the query of GetPrimaryKeyColumns at all.
  bool CanListPrimaryKeys() const;

  bool GetPrimaryKeyColumns(std::vector<KeyColumn>& key);
  bool GetUniqueIndexColumns(std::vector<KeyColumn>& key);

  /// All tables of the data source; neither views nor system tables.
  bool GetTables(std::vector<TableName>& tables);

 private:
  OdbcSession& session_;
  TableName table_;
};

/// The name between two copies of the driver's identifier quote character.
std::string QuoteIdentifier(const OdbcSession& session, std::string_view name);

/// The quoted table, preceded by the quoted owner and "." when there is one.
std::string TableReference(const OdbcSession& session, const TableName& table);

/// Puts the escape character before every "_"; "%" is left as it is.
void EscapeUnderscores(std::string& name, std::string_view escape);

}  // namespace imptable

#endif  // ODBC_CATALOGUE_H_
