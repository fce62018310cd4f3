// Entry points that ask for the catalogue. The text that conditions see is the table's name.
#include "tests/drivers/CatalogueResults.h"
#include "tests/drivers/Perform.h"

using namespace imptable::scripted;

namespace {

/// @param make  gives the result set for the query
template <typename Make>
SQLRETURN Answer(SQLHSTMT raw, Call call, const TableQuery& query, const std::string& more,
                 Make make) {
  Statement& statement = *static_cast<Statement*>(raw);
  const std::string table = query.table.value_or("");
  return Perform(
      statement, call, {table},
      [&] { return "schema=" + Shown(query.schema) + " table=" + Shown(query.table) + more; },
      [&] {
        statement.result = make(statement.playback->script());
        return SQL_SUCCESS;
      });
}

}  // namespace

SQLRETURN SQL_API SQLTables(SQLHSTMT raw, SQLCHAR*, SQLSMALLINT, SQLCHAR* schema,
                            SQLSMALLINT schema_length, SQLCHAR* table, SQLSMALLINT table_length,
                            SQLCHAR* types, SQLSMALLINT types_length) {
  const TableQuery query{TextArgument(schema, schema_length), TextArgument(table, table_length)};
  const Cell wanted = TextArgument(types, types_length);
  return Answer(raw, Call::kTables, query, " types=" + Shown(wanted),
                [&](const Script& script) { return TablesResult(script, query, wanted); });
}

SQLRETURN SQL_API SQLColumns(SQLHSTMT raw, SQLCHAR*, SQLSMALLINT, SQLCHAR* schema,
                             SQLSMALLINT schema_length, SQLCHAR* table, SQLSMALLINT table_length,
                             SQLCHAR* column, SQLSMALLINT column_length) {
  const TableQuery query{TextArgument(schema, schema_length), TextArgument(table, table_length)};
  const Cell wanted = TextArgument(column, column_length);
  return Answer(raw, Call::kColumns, query, wanted ? " column=" + *wanted : "",
                [&](const Script& script) { return ColumnsResult(script, query, wanted); });
}

SQLRETURN SQL_API SQLPrimaryKeys(SQLHSTMT raw, SQLCHAR*, SQLSMALLINT, SQLCHAR* schema,
                                 SQLSMALLINT schema_length, SQLCHAR* table,
                                 SQLSMALLINT table_length) {
  const TableQuery query{TextArgument(schema, schema_length), TextArgument(table, table_length)};
  return Answer(raw, Call::kPrimaryKeys, query, "",
                [&](const Script& script) { return PrimaryKeysResult(script, query); });
}

SQLRETURN SQL_API SQLStatistics(SQLHSTMT raw, SQLCHAR*, SQLSMALLINT, SQLCHAR* schema,
                                SQLSMALLINT schema_length, SQLCHAR* table, SQLSMALLINT table_length,
                                SQLUSMALLINT unique, SQLUSMALLINT accuracy) {
  const TableQuery query{TextArgument(schema, schema_length), TextArgument(table, table_length)};
  return Answer(raw, Call::kStatistics, query,
                " unique=" + std::to_string(unique) + " accuracy=" + std::to_string(accuracy),
                [&](const Script& script) {
                  return StatisticsResult(script, query, unique == SQL_INDEX_UNIQUE);
                });
}

SQLRETURN SQL_API SQLSpecialColumns(SQLHSTMT raw, SQLUSMALLINT identifier, SQLCHAR*, SQLSMALLINT,
                                    SQLCHAR* schema, SQLSMALLINT schema_length, SQLCHAR* table,
                                    SQLSMALLINT table_length, SQLUSMALLINT scope,
                                    SQLUSMALLINT nullable) {
  const TableQuery query{TextArgument(schema, schema_length), TextArgument(table, table_length)};
  return Answer(
      raw, Call::kSpecialColumns, query,
      " identifier=" + std::to_string(identifier) + " scope=" + std::to_string(scope) +
          " nullable=" + std::to_string(nullable),
      [&](const Script& script) { return SpecialColumnsResult(script, query, identifier); });
}
